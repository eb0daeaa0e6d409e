// Computes a CMYK test chart and prints it as a measurement file with reflectance spectra.
//
// The print model is Yule-Nielsen modified Neugebauer. A halftone of four inks covers the paper
// with sixteen kinds of spots, from bare paper to all four inks; how much of each follows from the
// four dot areas by the Demichel equations, after a tone value increase (dots print larger than
// they were asked to). The reflectance of a spot is that of the paper times the transmittance, on
// the way in and out, of its inks; the ink absorbances are sums of Gaussian bands placed like those
// of process inks. The spots are averaged as R^(1/n), where n stands for the spread of light in the
// paper. Each reading is disturbed a little, as those of an instrument are, from a fixed seed.
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kFirstNm = 380;
constexpr int kStepNm = 10;
constexpr std::size_t kBands = 36;
constexpr std::size_t kInks = 4;
constexpr double kYuleNielsenN = 1.7;
constexpr double kToneValueIncrease = 0.16;  // of a 50 % dot

using Device = std::array<double, kInks>;  // dot areas of C, M, Y, K in percent
using Spectrum = std::array<double, kBands>;

struct Band {
  double centre_nm, width_nm, absorbance;
};

struct Patch {
  std::string name;
  Device device;
};

double gaussian(double nm, double centre, double width) {
  const double distance = (nm - centre) / width;
  return std::exp(-0.5 * distance * distance);
}

// Coated paper: it absorbs below 420 nm and is slightly bluish.
double paper_reflectance(double nm) {
  return 0.90 - 0.32 * gaussian(nm, 370.0, 22.0) + 0.03 * gaussian(nm, 445.0, 25.0);
}

double ink_absorbance(std::size_t ink, double nm) {
  static const std::array<std::vector<Band>, kInks> kInkBands = {{
      {{625.0, 45.0, 2.6}, {700.0, 45.0, 2.1}, {560.0, 40.0, 0.5}, {410.0, 50.0, 0.35}},
      {{545.0, 32.0, 2.8}, {505.0, 28.0, 1.3}, {400.0, 45.0, 0.8}},
      {{430.0, 38.0, 2.7}, {385.0, 35.0, 1.6}, {480.0, 18.0, 0.8}},
      {{550.0, 600.0, 4.4}},
  }};
  double absorbance = 0.02;
  for (const Band& band : kInkBands[ink]) {
    absorbance += band.absorbance * gaussian(nm, band.centre_nm, band.width_nm);
  }
  return absorbance;
}

double printed_area(double percent) {
  const double asked = percent / 100.0;
  return asked + 4.0 * kToneValueIncrease * asked * (1.0 - asked);
}

Spectrum print_patch(const Device& device) {
  Spectrum spectrum{};
  for (std::size_t band = 0; band < kBands; ++band) {
    const double nm = kFirstNm + kStepNm * static_cast<double>(band);
    double mean = 0.0;
    for (unsigned spot = 0; spot < 16; ++spot) {
      double share = 1.0;
      double absorbance = 0.0;
      for (std::size_t ink = 0; ink < kInks; ++ink) {
        const bool is_covered = (spot >> ink & 1U) != 0;
        const double area = printed_area(device[ink]);
        share *= is_covered ? area : 1.0 - area;
        if (is_covered) absorbance += ink_absorbance(ink, nm);
      }
      const double reflectance = 0.004 + paper_reflectance(nm) * std::exp(-absorbance);
      mean += share * std::pow(reflectance, 1.0 / kYuleNielsenN);
    }
    spectrum[band] = std::pow(mean, kYuleNielsenN);
  }
  return spectrum;
}

// Noise of an instrument: evenly spread between -1 and 1.
class Noise {
 public:
  double next() {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<double>(state_ >> 33U) / static_cast<double>(1U << 30U) - 1.0;
  }

 private:
  std::uint64_t state_ = 20261121;
};

std::vector<Patch> lay_out_chart() {
  std::vector<Patch> patches;
  const auto add = [&patches](const std::string& name, const Device& device) {
    patches.push_back({name, device});
  };
  const auto step_name = [](const char* ink, int percent) {
    return std::string(ink) + " " + std::to_string(percent);
  };
  for (int i = 0; i < 4; ++i) add("Paper", {0, 0, 0, 0});
  const std::array<const char*, kInks> inks = {"Cyan", "Magenta", "Yellow", "Black"};
  for (std::size_t ink = 0; ink < kInks; ++ink) {
    for (int percent = 10; percent <= 100; percent += 10) {
      Device device = {0, 0, 0, 0};
      device[ink] = percent;
      add(step_name(inks[ink], percent), device);
    }
  }
  for (int percent = 10; percent <= 90; percent += 10) {
    const double c = percent;
    add(step_name("Grey", percent), {c, c * 0.85, c * 0.8, 0});
  }
  for (const int k : {0, 40}) {
    for (int c = 0; c <= 100; c += 25) {
      for (int m = 0; m <= 100; m += 25) {
        for (int y = 0; y <= 100; y += 25) {
          add("Grid", {1.0 * c, 1.0 * m, 1.0 * y, 1.0 * k});
        }
      }
    }
  }
  for (std::size_t ink = 0; ink < kInks; ++ink) {  // the solids once more, at the chart's end
    Device device = {0, 0, 0, 0};
    device[ink] = 100;
    add(step_name(inks[ink], 100), device);
  }
  for (int i = 0; i < 3; ++i) add("Paper", {0, 0, 0, 0});
  return patches;
}

}  // namespace

int main() {
  const std::vector<Patch> patches = lay_out_chart();
  std::printf(
      "CGATS.17\n"
      "ORIGINATOR\t\"measdata\"\n"
      "DESCRIPTOR\t\"CMYK chart computed by a print model, not measured\"\n"
      "CREATED\t\"2026-11-21\"\n"
      "INSTRUMENTATION\t\"Talvik R45, D50, 2 degree, geometry 45/0, no polarisation filter, "
      "white backing\"\n"
      "MEASUREMENT_SOURCE\t\"Illumination=D50 Observer=2degree WhiteBase=Abs Filter=No\"\n"
      "PRINT_CONDITIONS\t\"Yule-Nielsen modified Neugebauer, n = 1.7, tone value increase 16 %%\"\n"
      "KEYWORD\t\"SAMPLE_NAME\"\n"
      "NUMBER_OF_FIELDS\t%zu\n"
      "BEGIN_DATA_FORMAT\n"
      "SAMPLE_ID\tSAMPLE_NAME\tCMYK_C\tCMYK_M\tCMYK_Y\tCMYK_K",
      2 + kInks + kBands);
  for (std::size_t band = 0; band < kBands; ++band) {
    std::printf("\tSPECTRAL_NM%d", kFirstNm + kStepNm * static_cast<int>(band));
  }
  std::printf("\nEND_DATA_FORMAT\nNUMBER_OF_SETS\t%zu\nBEGIN_DATA\n", patches.size());

  Noise noise;
  for (std::size_t i = 0; i < patches.size(); ++i) {
    std::printf("%zu\t\"%s\"", i + 1, patches[i].name.c_str());
    for (const double dot : patches[i].device) std::printf("\t%g", dot);
    const double gain = 1.0 + 0.004 * noise.next();
    for (const double reflectance : print_patch(patches[i].device)) {
      std::printf("\t%.4f", reflectance * gain + 0.0005 * noise.next());
    }
    std::printf("\n");
  }
  std::printf("END_DATA\n");
  return 0;
}
