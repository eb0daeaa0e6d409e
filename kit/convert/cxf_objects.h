// The objects of a CxF document: one a patch, or two.
#ifndef MEASDATA_KIT_CONVERT_CXF_OBJECTS_H
#define MEASDATA_KIT_CONVERT_CXF_OBJECTS_H

#include "kit/convert/cxf_columns.h"
#include "kit/convert/cxf_markup.h"
#include "kit/convert/cxf_number.h"
#include "kit/preflight/table.h"

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// Ids of the colour specifications that values name.
struct CxfSpecificationIds {
  std::string colours, device;
};

class CxfObjects {
 public:
  /// `created` is the date and time of all objects.
  CxfObjects(Table& table, const CxfColumns& columns, const CxfSpecificationIds& ids,
             std::string_view created, CxfMarkup& out);

  /// One object a patch.
  void write_samples();
  /// Objects with the colours and then objects with the device values, if the table has both.
  /// `type` is that of the first.
  void write_pairs(std::string_view type);
  void tell(std::vector<std::string>& left_behind) const;
  std::size_t forbidden_characters() const {
    return values_.forbidden_characters() + tags_.forbidden_characters();
  }

 private:
  struct Parts {
    bool colours, device;
  };

  void write_object(std::size_t row, std::string_view type, std::string_view name, Parts parts);
  void write_colours(std::size_t row);
  void write_device(std::size_t row);
  void write_tags(std::size_t row, bool is_main, bool has_values);
  void write_place(std::string_view location);

  void write_spectrum(std::size_t row);
  void write_points();
  void write_triple(std::size_t row, const CxfTriple& triple);
  void write_density(std::size_t row, const CxfDensity& density);
  void write_rgb();
  void write_inks();

  enum class Found { all, some, none };
  Found read(std::size_t row, std::span<const int> fields);
  bool are_in(double least, double most) const;
  // Numbers that no element holds become tags.
  template <typename Name>
  void keep_as_tags(Name name_of, std::size_t count);
  std::string_view text_at(std::size_t row, int field);

  Table& table_;
  const CxfColumns& columns_;
  const CxfSpecificationIds& ids_;
  CxfMarkup& out_;
  CxfNumbers reader_;
  CxfMarkup values_, tags_;         // of the present object
  std::vector<CxfNumber> numbers_;  // read last
  std::vector<int> bands_;          // fields of the spectra
  std::string creation_, spectrum_, unquoted_;
  bool has_name_tags_ = false;
  std::size_t objects_ = 0, missing_ = 0;
  std::map<std::string_view, std::size_t> not_allowed_;  // objects by the element
};

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_CXF_OBJECTS_H
