#include "kit/cxf/table_builder.h"

#include "kit/cxf/header.h"
#include "kit/cxf/ink_set.h"
#include "kit/cxf/number_cells.h"
#include "kit/cxf/numbers.h"
#include "kit/cxf/patch_names.h"
#include "kit/cxf/tag_columns.h"
#include "kit/cxf/wavelengths.h"
#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace measkit::cxf {
namespace {

using FieldNames = std::array<std::string_view, 3>;

// The fields of a kind that is no spectrum; a density has one.
FieldNames fields_of(Kind kind) {
  switch (kind) {
    case Kind::lab:
      return {"LAB_L", "LAB_A", "LAB_B"};
    case Kind::lch:
      return {"LAB_L", "LAB_C", "LAB_H"};
    case Kind::luv:
      return {"LUV_L", "LUV_U", "LUV_V"};
    case Kind::xyz:
    case Kind::emissive_xyz:
      return {"XYZ_X", "XYZ_Y", "XYZ_Z"};
    case Kind::xyy:
    case Kind::emissive_xyy:
      return {"XYY_X", "XYY_Y", "XYY_CAPY"};
    case Kind::density_red:
      return {"D_RED", {}, {}};
    case Kind::density_green:
      return {"D_GREEN", {}, {}};
    case Kind::density_blue:
      return {"D_BLUE", {}, {}};
    case Kind::density_visual:
      return {"D_VIS", {}, {}};
    case Kind::reflectance:
    case Kind::transmittance:
    case Kind::emission:
      break;
  }
  return {};
}

class TableBuilder {
 public:
  TableBuilder(const Document& document, const Layer& layer, const LineIndex& lines)
      : document_(document),
        layer_(layer),
        lines_(lines),
        inks_(document, layer),
        tags_(document, layer),
        numbers_(lines, table_.pool) {}

  std::optional<Table> build(CellBudget& budget) {
    table_.data_line = line_of(layer_.patches.front());
    table_.is_as_it_stands = false;
    grid_ = common_grid(document_, layer_, lines_, table_.findings);
    name_columns();
    const std::size_t size = columns_.size() * layer_.patches.size();
    if (size > budget.left) return std::nullopt;
    budget.left -= size;
    cells_.width = columns_.size();
    cells_.texts.resize(size);
    if (!document_.measurement_file.empty()) mark_missing_numbers();
    for (std::size_t row = 0; row < layer_.patches.size(); ++row) fill(row);
    write_header(document_, layer_, lines_, table_);
    name_inks();
    tell();
    for (std::string& name : columns_) {
      table_.fields.push_back({std::move(name), static_cast<int>(table_.fields.size())});
    }
    table_.set_cells(std::move(cells_));
    return std::move(table_);
  }

 private:
  std::size_t line_of(const Patch& patch) const {
    return lines_.line_at(document_.objects[patch.any()].offset);
  }

  // The position of a column, which is new when no column has the name yet.
  std::size_t add_column(std::string name) {
    const auto [found, is_new] = positions_.emplace(std::move(name), columns_.size());
    if (is_new) columns_.push_back(found->first);
    return found->second;
  }

  void name_columns() {
    ids_ = ids_of(document_, layer_, table_.pool);
    names_ = names_of(document_, layer_);
    locations_ = locations_of(document_, layer_, table_.pool);
    if (!ids_.empty()) add_column("SAMPLE_ID");
    if (!names_.empty()) add_column("SAMPLE_NAME");
    if (!locations_.empty()) add_column("SAMPLE_LOC");
    name_device_columns();
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      if (!layer_.has(static_cast<Kind>(kind))) continue;
      const FieldNames fields = fields_of(static_cast<Kind>(kind));
      for (std::size_t i = 0; i < 3 && !fields[i].empty(); ++i) {
        kind_columns_[kind][i] = add_column(std::string(fields[i]));
      }
    }
    first_band_ = columns_.size();
    for (std::size_t i = 0; grid_ && i < grid_->bands; ++i) {
      add_column("SPECTRAL_NM" +
                 measkit::text_of(grid_->start + grid_->step * static_cast<double>(i)));
    }
    end_of_numbers_ = columns_.size();
    for (std::string& field : tags_.fields_beside(columns_)) {
      tag_columns_.push_back(add_column(std::move(field)));
    }
  }

  void name_device_columns() {
    first_ink_ = columns_.size();
    if (inks_.is_too_large()) {
      table_.findings.add(Severity::lost, "cxf-inks",
                          "The device values of " + std::to_string(inks_.size()) +
                              " inks are left out: a measurement file names at most " +
                              std::to_string(InkSet::kMost) + ".",
                          table_.data_line);
    } else if (inks_.size() != 0) {
      for (const std::string& field : inks_.fields()) add_column(field);
    }
    first_rgb_ = columns_.size();
    has_rgb_ = std::ranges::any_of(layer_.patches, [this](const Patch& patch) {
      return patch.device != kNoObject && document_.objects[patch.device].has_rgb();
    });
    for (const char* const field : {"RGB_R", "RGB_G", "RGB_B"}) {
      if (has_rgb_) add_column(field);
    }
  }

  std::string_view& cell(std::size_t row, std::size_t column) {
    return cells_.texts[row * cells_.width + column];
  }

  // As measurement files mark them; other documents leave it to the repairs, which tell it.
  void mark_missing_numbers() {
    for (std::size_t row = 0; row < layer_.patches.size(); ++row) {
      for (std::size_t column = first_ink_; column < end_of_numbers_; ++column) {
        cell(row, column) = "nan";
      }
    }
  }

  // A text on one line.
  std::string_view plain(std::string_view text) {
    const auto is_control = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; };
    if (std::ranges::none_of(text, is_control)) return text;
    std::string made(text);
    std::ranges::replace_if(made, is_control, ' ');
    return table_.pool.add(made);
  }

  void fill(std::size_t row) {
    const Patch& patch = layer_.patches[row];
    cells_.lines.push_back(line_of(patch));
    std::size_t column = 0;
    for (const auto* const texts : {&ids_, &names_, &locations_}) {
      if (!texts->empty()) cell(row, column++) = plain((*texts)[row]);
    }
    if (patch.device != kNoObject) fill_device(row, document_.objects[patch.device]);
    for (const std::size_t value : layer_.values[row]) fill_colour(row, document_.colours[value]);
    tags_.texts_of(patch, tag_texts_);
    for (std::size_t i = 0; i < tag_texts_.size(); ++i) {
      if (!tag_texts_[i].empty()) cell(row, tag_columns_[i]) = plain(tag_texts_[i]);
    }
  }

  // Inks that the patch does not name are not printed.
  void fill_device(std::size_t row, const Object& object) {
    const Range range = object.inks;
    if (range.count != 0 && !inks_.is_too_large()) {
      for (std::size_t i = 0; i < inks_.size(); ++i) cell(row, first_ink_ + i) = "0";
      for (std::size_t i = range.first; i < range.first + range.count; ++i) {
        const Ink& ink = document_.inks[i];
        cell(row, first_ink_ + inks_.position_of(ink.name)) =
            numbers_.cell(ink.percent, object.offset);
      }
    }
    for (std::size_t i = 0; object.has_rgb() && i < 3; ++i) {
      cell(row, first_rgb_ + i) = numbers_.rgb_cell(object.rgb[i], object.rgb_range, object.offset);
    }
  }

  void fill_colour(std::size_t row, const Measured& value) {
    if (is_spectrum(value.kind)) {
      fill_spectrum(row, value);
      return;
    }
    const FieldNames fields = fields_of(value.kind);
    const auto& columns = kind_columns_[static_cast<std::size_t>(value.kind)];
    for (std::size_t i = 0; i < 3 && !fields[i].empty(); ++i) {
      cell(row, columns[i]) = numbers_.cell(value.parts[i], value.offset);
    }
  }

  void fill_spectrum(std::size_t row, const Measured& spectrum) {
    const Specification& specification =
        document_.specifications[static_cast<std::size_t>(spectrum.specification)];
    if (!grid_ || grid_of(spectrum, specification) != grid_) return;
    std::string_view list = spectrum.parts[0];
    for (std::size_t i = 0; i < grid_->bands; ++i) {
      const std::string_view number = numbers_.cell(next_word(list), spectrum.offset);
      if (!number.empty()) cell(row, first_band_ + i) = number;
    }
  }

  void name_inks() {
    if (inks_.size() == 0 || inks_.is_too_large() || !inks_.needs_names()) return;
    if (has_own_keywords(document_, layer_)) return;
    for (std::size_t i = 0; i < inks_.size(); ++i) {
      add_keyword_at(table_, "INK_NAME_" + std::to_string(i + 1), inks_.names()[i],
                     table_.data_line);
    }
  }

  void tell() {
    numbers_.tell(table_.findings);
    if (!tags_.left_out().empty()) {
      table_.findings.add(Severity::lost, "cxf-left-out",
                          "Tags of patches are left out: " + tags_.left_out().list() + ".",
                          lines_.line_at(tags_.left_out().first_offset()));
    }
    if (!tags_.repeated().empty()) {
      table_.findings.add(Severity::lost, "cxf-repeated-tags",
                          "Tags of patches stand twice with different texts, of which the first "
                          "is kept: " +
                              tags_.repeated().list() + ".",
                          lines_.line_at(tags_.repeated().first_offset()));
    }
    const bool is_undeclared = std::ranges::any_of(layer_.specifications, [this](int index) {
      return !document_.specifications[static_cast<std::size_t>(index)].is_declared;
    });
    if (!is_undeclared) return;
    table_.findings.add(Severity::doubtful, "cxf-specification",
                        "Values name a colour specification that the document does not have: how "
                        "they were measured is not known.",
                        table_.data_line);
  }

  const Document& document_;
  const Layer& layer_;
  const LineIndex& lines_;
  InkSet inks_;
  TagColumns tags_;
  Table table_;
  NumberCells numbers_;
  std::optional<Grid> grid_;
  Cells cells_;
  std::vector<std::string> columns_;
  std::unordered_map<std::string, std::size_t> positions_;
  std::vector<std::string_view> ids_, names_, locations_, tag_texts_;
  std::array<std::array<std::size_t, 3>, kKinds> kind_columns_{};
  std::size_t first_ink_ = 0, first_rgb_ = 0, first_band_ = 0, end_of_numbers_ = 0;
  std::vector<std::size_t> tag_columns_;
  bool has_rgb_ = false;
};

}  // namespace

std::optional<Table> table_of(const Document& document, const Layer& layer, const LineIndex& lines,
                              CellBudget& budget) {
  return TableBuilder(document, layer, lines).build(budget);
}

}  // namespace measkit::cxf
