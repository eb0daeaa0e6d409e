#include "kit/convert/cxf_objects.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace measkit {
namespace {

// RGB of CxF are whole numbers: hundredths of the usual 0 to 255.
constexpr double kHundredths = 25500.0;

struct Place {
  std::string_view page;
  int row = 0, column = 0;  // from 0
};

// "2AB12": the page, the column in letters, the row from 1.
std::optional<Place> place_in(std::string_view location) {
  constexpr int kMost = 100000;
  const auto digits_end = [&](std::size_t from) {
    return std::min(location.find_first_not_of("0123456789", from), location.size());
  };
  Place place;
  const std::size_t letters = digits_end(0);
  std::size_t at = letters;
  for (; at < location.size() && location[at] >= 'A' && location[at] <= 'Z'; ++at) {
    place.column = place.column * 26 + (location[at] - 'A' + 1);
    if (place.column > kMost) return std::nullopt;
  }
  const std::size_t end = digits_end(at);
  if (at == letters || end == at || end != location.size()) return std::nullopt;
  for (; at < end; ++at) {
    place.row = place.row * 10 + (location[at] - '0');
    if (place.row > kMost) return std::nullopt;
  }
  if (place.row == 0) return std::nullopt;
  place.page = letters == 0 ? "1" : location.substr(0, letters);
  --place.row;
  --place.column;
  return place;
}

// What the kit's reader takes for a number of an object and not for a name.
bool seems_technical(std::string_view name) {
  constexpr std::string_view kType = "Sample";
  if (name.starts_with(kType)) name.remove_prefix(kType.size());
  return name.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string counted(std::size_t count, std::string_view one) {
  return std::to_string(count).append(" ").append(one).append(count == 1 ? "" : "s");
}

}  // namespace

CxfObjects::CxfObjects(Table& table, const CxfColumns& columns, const CxfSpecificationIds& ids,
                       std::string_view created, CxfMarkup& out)
    : table_(table), columns_(columns), ids_(ids), out_(out), reader_(table.pool) {
  CxfMarkup markup;
  markup.element(4, "CreationDate", created);
  creation_ = markup.take();
  const CxfSpectra& spectra = columns.spectra;
  for (const SpectralField& band : spectra.bands) bands_.push_back(band.field);
  spectrum_.append("<cc:").append(spectra.element);
  spectrum_.append(" StartWL=\"").append(std::to_string(spectra.start));
  spectrum_.append("\" ColorSpecification=\"").append(ids.colours).append("\">");
}

void CxfObjects::write_samples() {
  const std::size_t rows = table_.row_count();
  std::string_view first;
  bool are_same = rows > 1;
  for (std::size_t row = 0; row < rows && columns_.name != kNoField; ++row) {
    const std::string_view name = table_.cell(row, columns_.name);
    if (row == 0) first = name;
    are_same = are_same && name == first;
    has_name_tags_ = has_name_tags_ || (seems_technical(name) && !name.empty());
  }
  has_name_tags_ = has_name_tags_ || are_same;
  for (std::size_t row = 0; row < rows; ++row) {
    write_object(row, "Sample", text_at(row, columns_.name), {true, true});
  }
}

void CxfObjects::write_pairs(std::string_view type) {
  if (columns_.inks == CxfInks::none || !columns_.has_colours()) {
    write_samples();
    return;
  }
  has_name_tags_ = true;
  for (const bool is_target : {false, true}) {
    const std::string_view stem = is_target ? "Target" : type;
    for (std::size_t row = 0; row < table_.row_count(); ++row) {
      write_object(row, stem, std::string(stem) + std::to_string(row + 1), {!is_target, is_target});
    }
  }
}

void CxfObjects::write_object(std::size_t row, std::string_view type, std::string_view name,
                              Parts parts) {
  out_.raw("\t\t\t<cc:Object ObjectType=\"").raw(type).raw("\" Name=\"").escaped(name);
  out_.raw("\" Id=\"p").raw(std::to_string(++objects_)).raw("\">\n").raw(creation_);
  values_.clear();
  tags_.clear();
  if (parts.colours) write_colours(row);
  bool has_values = !values_.view().empty();
  if (has_values) {
    out_.raw("\t\t\t\t<cc:ColorValues>\n").raw(values_.view()).raw("\t\t\t\t</cc:ColorValues>\n");
    values_.clear();
  }
  if (parts.device) write_device(row);
  if (!values_.view().empty()) {
    out_.raw("\t\t\t\t<cc:DeviceColorValues>\n").raw(values_.view());
    out_.raw("\t\t\t\t</cc:DeviceColorValues>\n");
    has_values = true;
  }
  write_tags(row, parts.device, has_values);
  out_.raw("\t\t\t</cc:Object>\n");
}

CxfObjects::Found CxfObjects::read(std::size_t row, std::span<const int> fields) {
  numbers_.clear();
  std::size_t found = 0;
  for (const int field : fields) {
    numbers_.push_back(reader_.read(table_.cell(row, field)));
    found += numbers_.back().is_number() ? 1 : 0;
  }
  missing_ += fields.size() - found;
  return found == fields.size() ? Found::all : found == 0 ? Found::none : Found::some;
}

bool CxfObjects::are_in(double least, double most) const {
  return std::ranges::all_of(numbers_, [=](const CxfNumber& number) {
    return number.value >= least && number.value <= most;
  });
}

template <typename Name>
void CxfObjects::keep_as_tags(Name name_of, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (numbers_[i].is_number()) tags_.tag(5, name_of(i), numbers_[i].text);
  }
}

void CxfObjects::write_colours(std::size_t row) {
  if (!columns_.spectra.element.empty()) write_spectrum(row);
  for (const CxfTriple& triple : columns_.triples) write_triple(row, triple);
  for (const CxfDensity& density : columns_.densities) write_density(row, density);
}

void CxfObjects::write_spectrum(std::size_t row) {
  const Found found = read(row, bands_);
  if (found == Found::none) return;
  const bool is_emission = columns_.spectra.element == "EmissiveSpectrum";
  const bool is_allowed = std::ranges::all_of(numbers_, [=](const CxfNumber& number) {
    constexpr double kLeast = -0.1, kMost = 3.0;  // the bounds themselves are not allowed
    return is_emission ? number.value > 0.0 : number.value > kLeast && number.value < kMost;
  });
  if (found == Found::some || !is_allowed || !columns_.spectra.is_on_grid) {
    write_points();
    return;
  }
  values_.raw("\t\t\t\t\t").raw(spectrum_);
  for (std::size_t i = 0; i < numbers_.size(); ++i) {
    values_.raw(i == 0 ? "" : " ").raw(numbers_[i].text);
  }
  values_.raw("</cc:").raw(columns_.spectra.element).raw(">\n");
}

// Without limits and with any wavelengths.
void CxfObjects::write_points() {
  values_.raw("\t\t\t\t\t<cc:CustomSpectrum ColorSpecification=\"").raw(ids_.colours).raw("\">\n");
  for (std::size_t i = 0; i < numbers_.size(); ++i) {
    values_.raw("\t\t\t\t\t\t<cc:SpectralPoint WL=\"");
    values_.raw(decimal_text(columns_.spectra.bands[i].nm)).raw("\">");
    values_.raw(numbers_[i].is_number() ? numbers_[i].text : "NaN").raw("</cc:SpectralPoint>\n");
  }
  values_.raw("\t\t\t\t\t</cc:CustomSpectrum>\n");
}

void CxfObjects::write_triple(std::size_t row, const CxfTriple& triple) {
  const Found found = read(row, triple.fields);
  if (found == Found::none) return;
  const bool is_allowed =
      triple.is_allowed({numbers_[0].value, numbers_[1].value, numbers_[2].value});
  if (found == Found::some || !is_allowed) {
    if (!is_allowed) ++not_allowed_[triple.element];
    keep_as_tags([&triple](std::size_t i) { return triple.names[i]; }, 3);
    return;
  }
  values_.raw("\t\t\t\t\t<cc:").raw(triple.element).raw(" ColorSpecification=\"").raw(ids_.colours);
  values_.raw("\">");
  for (std::size_t i = 0; i < 3; ++i) {
    values_.raw("<cc:").raw(triple.parts[i]).raw(">").raw(numbers_[i].text);
    values_.raw("</cc:").raw(triple.parts[i]).raw(">");
  }
  values_.raw("</cc:").raw(triple.element).raw(">\n");
}

void CxfObjects::write_density(std::size_t row, const CxfDensity& density) {
  if (read(row, std::array{density.field}) != Found::all) return;
  values_.raw("\t\t\t\t\t<cc:ColorDensity ColorSpecification=\"").raw(ids_.colours);
  values_.raw("\"><cc:Density>").raw(numbers_[0].text).raw("</cc:Density><cc:Status>");
  values_.raw(columns_.density_status).raw("</cc:Status><cc:Filter>").raw(density.filter);
  values_.raw("</cc:Filter></cc:ColorDensity>\n");
}

void CxfObjects::write_device(std::size_t row) {
  if (columns_.inks == CxfInks::none) return;
  const Found found = read(row, columns_.device);
  if (found == Found::none) return;
  const bool is_rgb = columns_.inks == CxfInks::rgb;
  const bool is_allowed = are_in(0.0, is_rgb ? columns_.full_rgb : 100.0);
  if (found == Found::some || !is_allowed) {
    if (!is_allowed) ++not_allowed_[is_rgb ? "ColorRGB" : "percentages of inks"];
    keep_as_tags(
        [this](std::size_t i) {
          return table_.fields[static_cast<std::size_t>(columns_.device[i])].name;
        },
        numbers_.size());
  } else if (is_rgb) {
    write_rgb();
  } else {
    write_inks();
  }
}

// Numbers that a whole number cannot stand for also become tags, which count when they are read.
void CxfObjects::write_rgb() {
  static constexpr std::array<std::string_view, 3> kParts = {"R", "G", "B"};
  const bool is_usual = columns_.full_rgb == 255.0;
  const bool is_whole = is_usual && std::ranges::all_of(numbers_, [](const CxfNumber& number) {
                          return number.value == std::floor(number.value);
                        });
  const double factor = is_whole ? 1.0 : kHundredths / columns_.full_rgb;
  bool is_exact = is_usual;
  values_.raw("\t\t\t\t\t<cc:ColorRGB ColorSpecification=\"").raw(ids_.device).raw("\">");
  if (!is_whole) values_.raw("<cc:MaxRange>25500</cc:MaxRange>");
  for (std::size_t i = 0; i < 3; ++i) {
    const double exact = numbers_[i].value * factor, whole = std::round(exact);
    constexpr double kRounding = 1e-9;  // of the multiplication by 100
    is_exact = is_exact && std::abs(exact - whole) <= kRounding * kHundredths;
    values_.raw("<cc:").raw(kParts[i]).raw(">").raw(decimal_text(whole));
    values_.raw("</cc:").raw(kParts[i]).raw(">");
  }
  values_.raw("</cc:ColorRGB>\n");
  if (is_exact) return;
  static constexpr std::array<std::string_view, 3> kNames = {"RGB_R", "RGB_G", "RGB_B"};
  keep_as_tags([](std::size_t i) { return kNames[i]; }, 3);
}

void CxfObjects::write_inks() {
  const bool is_custom = columns_.inks == CxfInks::custom;
  const std::string_view element = is_custom                        ? "ColorCustom"
                                   : columns_.inks == CxfInks::cmyk ? "ColorCMYK"
                                                                    : "ColorCMYKPlusN";
  static constexpr std::array<std::string_view, 4> kParts = {"Cyan", "Magenta", "Yellow", "Black"};
  values_.raw("\t\t\t\t\t<cc:").raw(element);
  if (is_custom) values_.raw(" Name=\"").escaped(columns_.set).raw("\"");
  values_.raw(" ColorSpecification=\"").raw(ids_.device).raw("\">");
  for (std::size_t i = 0; i < numbers_.size(); ++i) {
    if (!is_custom && i < kParts.size()) {
      values_.raw("<cc:").raw(kParts[i]).raw(">").raw(numbers_[i].text);
      values_.raw("</cc:").raw(kParts[i]).raw(">");
    } else {
      values_.raw("<cc:SpotColor><cc:Name>").escaped(columns_.ink_names[i]);
      values_.raw("</cc:Name><cc:Percentage>").raw(numbers_[i].text);
      values_.raw("</cc:Percentage></cc:SpotColor>");
    }
  }
  values_.raw("</cc:").raw(element).raw(">\n");
}

std::string_view CxfObjects::text_at(std::size_t row, int field) {
  if (field == kNoField) return {};
  const std::string_view cell = table_.cell(row, field);
  if (cell.find("\"\"") == std::string_view::npos) return cell;
  unquoted_.clear();  // cells hold quotes doubled
  for (std::size_t i = 0; i < cell.size(); ++i) {
    unquoted_ += cell[i];
    if (cell[i] == '"' && i + 1 < cell.size() && cell[i + 1] == '"') ++i;
  }
  return unquoted_;
}

void CxfObjects::write_place(std::string_view location) {
  out_.tag(5, "SAMPLE_LOC", location);
  const std::optional<Place> place = place_in(location);
  if (!place) return;
  out_.tag(5, "Page", place->page);
  out_.tag(5, "Row", std::to_string(place->row));
  out_.tag(5, "Column", std::to_string(place->column));
}

// An object without values has an empty collection, so that the patch is not lost.
void CxfObjects::write_tags(std::size_t row, bool is_main, bool has_values) {
  const std::string_view location =
      columns_.location == kNoField ? std::string_view() : text_at(row, columns_.location);
  const bool has_id = columns_.id != kNoField && !table_.cell(row, columns_.id).empty();
  const bool has_name =
      has_name_tags_ && columns_.name != kNoField && !table_.cell(row, columns_.name).empty();
  if (!location.empty() || has_id || has_name) {
    out_.raw("\t\t\t\t<cc:TagCollection Name=\"Location\">\n");
    if (!location.empty()) write_place(location);
    if (has_id) out_.tag(5, "SampleID", text_at(row, columns_.id));
    if (has_name) out_.tag(5, "SampleName", text_at(row, columns_.name));
    out_.raw("\t\t\t\t</cc:TagCollection>\n");
  }
  for (const int field : columns_.others) {
    if (!is_main) break;
    const std::string_view text = text_at(row, field);
    // The first object has the tags of all columns.
    if (text.empty() && row != 0) continue;
    tags_.tag(5, table_.fields[static_cast<std::size_t>(field)].name, text);
  }
  if (tags_.view().empty() && has_values) return;
  out_.raw("\t\t\t\t<cc:TagCollection Name=\"Fields\">\n").raw(tags_.view());
  out_.raw("\t\t\t\t</cc:TagCollection>\n");
}

void CxfObjects::tell(std::vector<std::string>& left_behind) const {
  if (missing_ != 0) {
    left_behind.push_back(counted(missing_, "cell") + " without a number: left out.");
  }
  for (const auto& [element, count] : not_allowed_) {
    left_behind.push_back("Outside the range that CxF allows for " + std::string(element) + ": " +
                          std::to_string(count) + (count == 1 ? " patch" : " patches") +
                          ", kept as tags of their objects.");
  }
}

}  // namespace measkit
