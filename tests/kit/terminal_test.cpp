// Swatches and graphs of a summary. Expectations are derived by hand.
#include "kit/write/summary.h"
#include "kit/write/terminal_graphics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace measkit;

TEST(Terminal, SwatchesHaveTheColourOrOneNearIt) {
  const struct {
    std::string_view hex;
    Colours colours;
    std::string text;
  } cases[] = {
      {"#00A3E2", Colours::all, "\x1B[48;2;0;163;226m  \x1B[0m "},
      {"#00A3E2", Colours::cube, "\x1B[48;5;38m  \x1B[0m "},  // 0, 175, 215: 16 + 3 * 6 + 4
      {"#00A3E2", Colours::none, "   "},
      {"", Colours::all, "   "},
  };
  for (const auto& c : cases) EXPECT_EQ(swatch(c.hex, c.colours), c.text);
}

TEST(Terminal, BlocksAreAsHighAsTheirValues) {
  const struct {
    std::vector<double> heights;
    std::size_t columns;
    std::string line;
  } cases[] = {
      {{0.0, 0.2, 0.5, 1.0}, 24, "\u2581\u2582\u2585\u2588"},
      {{-1.0, NAN, 7.0, HUGE_VAL}, 24, "\u2581 \u2588\u2588"},
      {{0.0, 1.0, NAN, 1.0, 0.0}, 2, "\u2585\u2585"},  // 0 and 1; 1 and 0
      {{}, 24, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(blocks(c.heights, c.columns), c.line);
}

std::string shown(std::string_view fields, std::string_view rows) {
  const std::string text = "CGATS.17\nBEGIN_DATA_FORMAT\n" + std::string(fields) +
                           "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + std::string(rows) + "END_DATA\n";
  const Preflighted file = preflight(text, "chart.txt");
  return summary_of(chart_of(*file.tables.front(), "chart.txt"), Detail::all, {Colours::all, true});
}

TEST(Terminal, RowsHaveSwatchesAndGraphs) {
  // L* of neutrals falls by what the tone value rises.
  const std::string wedge = shown("SAMPLE_ID GRAY LAB_L LAB_A LAB_B",
                                  "a\x1B[31m 0 100 0 0\nb 25 70 0 0\nc 50 45 0 0\nd 100 0 0 0\n");
  const std::string lights = shown("RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B",
                                   "0 0 0 0 0 0\n100 0 0 30 40 40\n255 0 0 55 80 70\n"
                                   "255 255 255 100 0 0\n");
  // The largest value is at full height.
  const std::string spectra =
      shown("GRAY nm400 nm500 nm600 nm700", "0 0.5 0.5 0.375 0.25\n100 0.125 0.0625 0.0625 0\n");
  const std::string no_device = shown("nm400 nm500 nm600 nm700", "0.5 0.5 0.375 0.25\n");
  // Too wide for device values and spectra.
  const std::string inks =
      shown("SAMPLE_ID 6CLR_1 6CLR_2 6CLR_3 6CLR_4 6CLR_5 6CLR_6 nm400 nm500 nm600 nm700",
            "first_paper 0 0 0 0 0 0 0.5 0.5 0.375 0.25\nsecond 0 0 0 0 0 0 0.5 0.5 0.375 0.25\n"
            "ink 100 0 0 0 0 0 0.25 0 0 0\n");
  const struct {
    const std::string& text;
    std::string part;
  } cases[] = {
      {wedge, "  \x1B[48;2;253;255;255m  \x1B[0m     0  a\\x1B[31m  100.00  0.00  0.00  #FDFFFF "},
      {wedge, "  \x1B[48;2;0;0;0m  \x1B[0m     3  d "},
      {wedge, "m  \x1B[0m Paper "},
      {wedge, "tone of wedge\n  \x1B[48;2;0;0;0m  \x1B[0m Gray "},
      {wedge, " \u2583\u2585\u2588\n"},
      {lights, "L* of wedge\n"},
      {lights, " \u2583\u2585\n"},
      {spectra, " 400-700 nm\n"},
      {spectra, " \u2588\u2588\u2587\u2585\n"},
      {spectra, " \u2583\u2582\u2582\u2581\n"},
      {inks, "sRGB     400-700 nm\n"},
      {no_device, " \u2588\u2588\u2587\u2585\n"},
  };
  for (const auto& c : cases) EXPECT_NE(c.text.find(c.part), std::string::npos) << c.part << c.text;
  EXPECT_EQ(wedge.find("a\x1B"), std::string::npos) << wedge;
}

}  // namespace
