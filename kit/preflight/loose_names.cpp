#include "kit/preflight/loose_names.h"

#include "kit/preflight/column_names.h"
#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

namespace measkit {
namespace {

// Names that repairs give.
constexpr std::string_view kEmission = "EMISSION_", kOther = "OTHER_",
                           kPlaceholder = "PLACEHOLDER_";
constexpr double kShortestWavelength = 100.0;  // nm; a smaller number in a name is none

bool starts_with_any(std::string_view name, std::initializer_list<std::string_view> starts) {
  return std::any_of(starts.begin(), starts.end(),
                     [name](std::string_view start) { return name.starts_with(start); });
}

bool has_wavelengths(const Roles& roles) {
  return roles.has_spectra() && roles.spectra.front().nm >= kShortestWavelength;
}

bool has_field(const Table& table, std::string_view start) {
  return std::any_of(table.fields.begin(), table.fields.end(),
                     [start](const Field& field) { return field.name.starts_with(start); });
}

// What a table lacks, so that columns under other names may hold it. What a repair set aside does
// not lack.
struct Wanted {
  bool colour, device, spectra;

  Wanted(const Table& table, const Roles& roles)
      : device(!roles.has_device() && !has_field(table, kPlaceholder)),
        spectra(!has_wavelengths(roles) && !has_field(table, kEmission) &&
                !has_field(table, kOther)) {
    colour =
        spectra && !roles.has_lab() && !roles.has_xyz() && !roles.has_lch() && !roles.has_xyy();
  }

  bool anything() const { return colour || device || spectra; }
  bool has(const Column& column) const {
    if (column.kind == Column::Kind::wavelength) return spectra;
    if (column.kind != Column::Kind::number) return false;
    return (colour && starts_with_any(column.name, {"LAB_", "XYZ_", "XYY_"})) ||
           (device && starts_with_any(column.name, {"RGB_", "CMYK", "CMY_", "GRAY"}));
  }
};

// The names of the fields, apart from spectra that were set aside before.
SheetCells names_of(const Table& table) {
  SheetCells names = table.field_names();
  for (std::string_view& name : names) {
    if (starts_with_any(name, {kEmission, kOther, kPlaceholder})) name = "-";
  }
  return names;
}

class LooseNames {
 public:
  LooseNames(Table& table, const std::vector<Column>& columns)
      : table_(table), columns_(columns), wanted_(table, table.roles()) {
    for (const Field& field : table.fields) names_.insert(field.name);
  }

  void use() {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (wanted_.has(columns_[i])) rename(i);
    }
    const bool is_loose = renamed_ != 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const bool has_blank = table_.fields[i].name.find(' ') != std::string::npos;
      if (columns_[i].kind == Column::Kind::text && (is_loose || has_blank)) rename(i);
    }
    tell();
  }

 private:
  void rename(std::size_t i) {
    const Column& column = columns_[i];
    const std::string old = table_.fields[i].name;
    if (old == column.name || !names_.insert(column.name).second) return;
    table_.rename(static_cast<int>(i), column.name);
    ++renamed_;
    if (column.kind == Column::Kind::wavelength) {
      ++wavelengths_;
    } else {
      told_ += (told_.empty() ? "" : ", ") + old + " as " + column.name;
    }
  }

  void tell() {
    if (renamed_ == 0) return;
    if (wavelengths_ != 0) {
      told_ +=
          (told_.empty() ? "" : "; ") + std::to_string(wavelengths_) + " wavelengths as a spectrum";
    }
    table_.findings.add(Severity::repaired, "field-names",
                        "Field names are read as: " + told_ + ".", table_.data_line);
  }

  Table& table_;
  const std::vector<Column>& columns_;
  Wanted wanted_;
  std::set<std::string> names_;
  std::size_t renamed_ = 0, wavelengths_ = 0;
  std::string told_;
};

}  // namespace

void use_loose_names(Table& table) {
  const bool is_chart =
      table.content == Content::measurement || table.content == Content::emission_spectra;
  if (!is_chart || table.fields.size() > kMostColumns) return;
  const Roles roles = table.roles();
  const bool is_named = roles.unused.empty() && (!roles.has_spectra() || has_wavelengths(roles));
  if (is_named || !Wanted(table, roles).anything()) return;
  const SheetCells names = names_of(table);
  const std::vector<Column> columns = columns_named(names);
  if (!columns.empty()) LooseNames(table, columns).use();
}

}  // namespace measkit
