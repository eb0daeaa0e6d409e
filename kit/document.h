// A file with its charts, as the kit's interface and the tools see it.
#ifndef MEASDATA_KIT_DOCUMENT_H
#define MEASDATA_KIT_DOCUMENT_H

#include "kit/chart/chart.h"
#include "kit/finding.h"
#include "kit/preflight/preflight.h"
#include "measdata/file_text.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace measkit {

enum class Opening { repair, as_is };

class Document {
 public:
  /// Reads the file named by a UTF-8 path. A file that cannot be read has no charts, but a finding.
  static std::unique_ptr<Document> open_file(const std::string& path, Opening opening);
  static std::unique_ptr<Document> open_block(std::string bytes, std::string name, Opening opening);

  const std::string& name() const { return name_; }
  const Findings& findings() const { return preflighted_.findings; }
  std::size_t size() const { return preflighted_.tables.size(); }
  PlainTable& plain(std::size_t chart) const { return *preflighted_.tables[chart]; }
  const std::string& chart_name(std::size_t chart) const { return chart_names_[chart]; }
  /// True when a chart has patches.
  bool has_patches() const;
  /// True when something was repaired, is doubtful or is lost.
  bool has_other_than_notes();

  /// To be said before the charts are asked for.
  void set_effort(Effort effort) { effort_ = effort; }
  /// The charts as values, made at the first call.
  std::span<const Chart> charts();
  /// The same for a page: the first chart also has the findings about the file as a whole. A file
  /// without charts gives one that is not loaded.
  std::vector<Chart> page_charts();

 private:
  Document(std::string name, Opening opening) : name_(std::move(name)), opening_(opening) {}
  void read(std::string_view bytes);
  void read_as_is(std::string_view bytes);

  std::string name_;
  Opening opening_;
  Effort effort_ = Effort::usual;
  vantor::MeasData::FileText file_;  // its bytes, or those of block_
  std::string block_;
  Preflighted preflighted_;
  std::vector<std::string> chart_names_;
  std::vector<Chart> charts_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_DOCUMENT_H
