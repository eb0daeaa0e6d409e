#include "kit/convert/cxf_columns.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>

namespace measkit {
namespace {

constexpr std::array<std::string_view, 4> kProcessInks = {"Cyan", "Magenta", "Yellow", "Black"};

// The ranges of the schema.
bool is_lab(const Triple& v) { return v[0] >= 0.0; }
bool is_lch(const Triple& v) { return v[0] >= 0.0 && v[1] >= 0.0 && v[2] >= 0.0 && v[2] <= 360.0; }
bool is_xyz(const Triple& v) { return v[0] >= 0.0 && v[1] >= 0.0 && v[2] >= 0.0; }
bool is_xyy(const Triple& v) { return is_xyz(v) && v[0] <= 1.0 && v[1] <= 1.0; }

const CxfTriple kLab = {"ColorCIELab", {"L", "A", "B"}, {"LAB_L", "LAB_A", "LAB_B"}, is_lab};
const CxfTriple kLch = {"ColorCIELCh", {"L", "C", "H"}, {"LAB_L", "LAB_C", "LAB_H"}, is_lch};
const CxfTriple kXyz = {"ColorCIEXYZ", {"X", "Y", "Z"}, {"XYZ_X", "XYZ_Y", "XYZ_Z"}, is_xyz};
const CxfTriple kXyy = {"ColorCIExyY", {"x", "y", "Y"}, {"XYY_X", "XYY_Y", "XYY_CAPY"}, is_xyy};

// "T" of "Status T"; empty for a status that CxF does not have.
std::string_view density_status_in(std::string_view words) {
  static constexpr std::array<std::string_view, 15> kStatuses = {
      "A",   "E",   "I",  "M",   "T",      "SpectralX", "Spectral", "HiFi",
      "Hex", "Txp", "Ex", "DIN", "DIN-NB", "PD",        "APD"};
  constexpr std::string_view kWord = "Status ";
  if (words.starts_with(kWord)) words.remove_prefix(kWord.size());
  const auto found = std::ranges::find(kStatuses, words);
  return found == kStatuses.end() ? std::string_view() : *found;
}

class ColumnFinder {
 public:
  ColumnFinder(const Table& table, const Chart& chart, std::vector<std::string>& left_behind)
      : table_(table), chart_(chart), roles_(table.roles()), left_behind_(left_behind) {}

  CxfColumns find() {
    columns_.id = take(roles_.id);
    columns_.name = take(roles_.name);
    columns_.location = take(roles_.location);
    find_device();
    add_triple(kLab, roles_.lab);
    add_triple(kLch, roles_.lch);
    add_triple(kXyz, roles_.xyz);
    add_triple(kXyy, roles_.xyy);
    find_densities();
    find_spectra();
    find_others();
    return std::move(columns_);
  }

 private:
  int take(int field) {
    if (field != kNoField) taken_.insert(field);
    return field;
  }

  void add_triple(CxfTriple triple, const FieldTriple& fields) {
    if (!is_complete(fields)) return;
    triple.fields = fields;
    for (const int field : fields) take(field);
    columns_.triples.push_back(triple);
  }

  void find_device() {
    if (!roles_.has_device()) return;
    for (const int field : roles_.device) columns_.device.push_back(take(field));
    columns_.set = roles_.device_set;
    name_inks();
    const bool has_process_inks =
        columns_.ink_names.size() > kProcessInks.size() &&
        std::equal(kProcessInks.begin(), kProcessInks.end(), columns_.ink_names.begin());
    if (columns_.set == "RGB") {
      columns_.inks = CxfInks::rgb;
      if (chart_.full_scale > 0.0) columns_.full_rgb = chart_.full_scale;
    } else if (columns_.set == "CMYK") {
      columns_.inks = CxfInks::cmyk;
    } else {
      const std::string hexadecimal = std::string(1, "0123456789ABCDEF"[columns_.device.size()]);
      columns_.inks = has_process_inks && columns_.set == hexadecimal + "CLR"
                          ? CxfInks::cmyk_and_spots
                          : CxfInks::custom;
    }
  }

  // Inks are told apart by their names: where two have the same, the names of the fields are taken.
  void name_inks() {
    std::vector<std::string> names;
    for (const Channel& channel : chart_.channels) names.push_back(channel.name);
    if (columns_.set == "CMY") names.assign(kProcessInks.begin(), kProcessInks.begin() + 3);
    if (columns_.set == "GRAY") names = {"Gray"};
    const std::unordered_set<std::string> different(names.begin(), names.end());
    if (names.size() != columns_.device.size() || different.size() != names.size() ||
        different.contains("")) {
      names.clear();
      for (const int field : columns_.device) names.push_back(name_of(field));
    }
    columns_.ink_names = std::move(names);
  }

  void find_densities() {
    if (roles_.densities.empty()) return;
    const auto& stated = chart_.conditions.density_status;
    columns_.density_status = stated ? density_status_in(stated->value) : std::string_view();
    if (columns_.density_status.empty()) {
      left_behind_.emplace_back(
          "CxF wants the status of densities, which the chart does not tell: the densities are "
          "kept as tags.");
      return;
    }
    for (const int field : roles_.densities) {
      const std::string& name = name_of(take(field));
      const std::string_view filter = name == "D_RED"     ? "Red"
                                      : name == "D_GREEN" ? "Green"
                                      : name == "D_BLUE"  ? "Blue"
                                                          : "Visual";
      columns_.densities.push_back({filter, name, field});
    }
  }

  void find_spectra() {
    CxfSpectra spectra;
    if (roles_.has_spectra()) {
      spectra.element = chart_.quantity == Quantity::transmittance ? "TransmittanceSpectrum"
                                                                   : "ReflectanceSpectrum";
      spectra.bands = roles_.spectra;
    } else {
      spectra.element = "EmissiveSpectrum";
      for (std::size_t i = 0; i < table_.fields.size(); ++i) {
        const double nm = emission_wavelength_in(table_.fields[i].name);
        if (nm != 0.0) spectra.bands.push_back({static_cast<int>(i), nm});
      }
    }
    std::ranges::sort(spectra.bands, {}, &SpectralField::nm);
    if (!is_even(spectra.bands)) return;
    set_grid(spectra);
    for (const SpectralField& band : spectra.bands) take(band.field);
    columns_.spectra = std::move(spectra);
  }

  static bool is_even(const std::vector<SpectralField>& bands) {
    if (bands.size() < 2) return bands.size() == 1;
    const double start = bands[0].nm, step = bands[1].nm - start;
    for (std::size_t i = 0; i < bands.size(); ++i) {
      if (bands[i].nm != start + step * static_cast<double>(i)) return false;
    }
    return step > 0.0;
  }

  static void set_grid(CxfSpectra& spectra) {
    constexpr double kFirstStart = 360.0, kLastStart = 400.0;
    static constexpr std::array<int, 5> kSteps = {1, 2, 5, 10, 20};
    const double start = spectra.bands[0].nm;
    const double step = spectra.bands.size() < 2 ? 10.0 : spectra.bands[1].nm - start;
    const auto known = std::ranges::find(kSteps, step);
    if (start < kFirstStart || start > kLastStart || known == kSteps.end()) return;
    spectra.start = static_cast<int>(start);
    spectra.step = *known;
    spectra.is_on_grid = spectra.start == start;
  }

  void find_others() {
    std::unordered_set<std::string_view> names;
    for (std::size_t i = 0; i < table_.fields.size(); ++i) {
      const int field = static_cast<int>(i);
      if (taken_.contains(field)) continue;
      if (names.insert(name_of(field)).second) {
        columns_.others.push_back(field);
      } else {
        left_behind_.push_back("A second column " + name_of(field) + " is left out.");
      }
    }
  }

  const std::string& name_of(int field) const {
    return table_.fields[static_cast<std::size_t>(field)].name;
  }

  const Table& table_;
  const Chart& chart_;
  Roles roles_;
  std::vector<std::string>& left_behind_;
  std::unordered_set<int> taken_;
  CxfColumns columns_;
};

}  // namespace

CxfColumns cxf_columns_of(const Table& table, const Chart& chart,
                          std::vector<std::string>& left_behind) {
  return ColumnFinder(table, chart, left_behind).find();
}

}  // namespace measkit
