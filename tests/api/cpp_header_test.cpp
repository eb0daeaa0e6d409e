// The C++ header: ownership, ranges, optional answers and errors.
#include "api/measdata.hpp"
#include "tests/support/loaded.h"

#ifdef MEASDATA_TEST_KIT
#include "kit/measkit.h"
#endif

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using measdata::chart;
using Values = std::vector<double>;

// Cyan is measured twice, 5 apart; magenta ends at 40.
const std::string kInks = test::file_of(
    "SAMPLE_ID SAMPLE_NAME SAMPLE_LOC CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B XYZ_X XYZ_Y "
    "XYZ_Z",
    "1 paper A1 0 0 0 0 90 0 0 80 82 60\n"
    "2 cyan A2 100 0 0 0 50 0 0 10 20 30\n"
    "3 cyan A3 100 0 0 0 50 3 4 12 22 32\n"
    "4 half A4 50 0 0 0 70 0 0 40 45 50\n"
    "5 tint A5 0 40 0 0 75 9 0 50 55 60\n",
    "SERIAL 7\nILLUMINANT D50\nCOPYRIGHT free\nCOMPUTATIONAL_PARAMETER one\n"
    "COMPUTATIONAL_PARAMETER two\n");

template <class Numbers>
Values values_of(const std::optional<Numbers>& numbers) {
  return numbers ? Values(numbers->begin(), numbers->end()) : Values();
}

TEST(CppHeader, ChartsOwnOrBorrowAndMove) {
  void* handle = init_parser();
  chart owner = chart::own(handle);
  ASSERT_TRUE(owner.read_block(kInks));
  const measdata::patch patch = owner.patches()[1];
  {
    const chart borrowed = chart::borrow(handle);
    EXPECT_TRUE(borrowed && !borrowed.is_owner() && owner.is_owner());
    EXPECT_EQ(borrowed.patches().size(), 5U);
  }
  chart target = chart::create();  // its own handle is released
  target = std::move(owner);
  EXPECT_EQ(target.handle(), handle);
  EXPECT_EQ(patch.name(), "cyan");
  EXPECT_FALSE(owner || owner.is_owner());  // NOLINT(bugprone-use-after-move)
  chart& same = target;
  target = std::move(same);
  EXPECT_EQ(target.patches().size(), 5U);
  chart third(std::move(target));
  EXPECT_EQ(third.release(), handle);
  EXPECT_FALSE(third || third.is_owner() || chart::own(nullptr).is_owner());
  cleanup_parser(&handle);
}

TEST(CppHeader, LoadsThrowOrReturn) {
  const std::string path = testing::TempDir() + "no-such-file";
  const auto refused = chart::try_load(path);
  EXPECT_FALSE(refused.has_value());
  EXPECT_TRUE(refused->patches().empty());
  EXPECT_NE(refused.messages().find(path), std::string_view::npos);
  try {
    chart::load(path);
    FAIL() << "no exception";
  } catch (const measdata::load_error& error) {
    EXPECT_EQ(error.what(), refused.messages());
  }
  EXPECT_THROW(chart::load_block("no chart"), std::runtime_error);
  const measdata::result<chart> without_memory(chart(), false);
  EXPECT_EQ(without_memory.messages(), "Out of memory\n");

  const std::string examples = MEASDATA_EXAMPLES;
  EXPECT_EQ(chart::load(examples + "/cmyk-spectral-310.txt").patches().size(), 310U);
  constexpr auto table = measdata::parse_mode::semicolon_table;
  EXPECT_EQ(chart::load_block("A;LAB_L;LAB_A;LAB_B\n1;50;1;2\n", "name", table).mode(), table);
  EXPECT_TRUE(chart::try_load(examples + "/semicolon-table.csv", table));

  chart again = chart::try_load_block(kInks).value();
  EXPECT_EQ(again.mode(), measdata::parse_mode::measurement_file);
  EXPECT_FALSE(again.read(path));
  EXPECT_TRUE(again.patches().empty() && again.has_keyword("SERIAL"));
  EXPECT_EQ(again.messages(), refused.messages());
}

TEST(CppHeader, RangesWorkWithAlgorithms) {
  const chart inks = chart::load_block(kInks);
  const auto patches = inks.patches();
  int sum = 0;
  for (const measdata::patch& patch : patches) sum += patch.position();
  EXPECT_EQ(sum, 10);
  const auto begin = patches.begin();
  EXPECT_EQ(patches.end() - begin, 5);
  EXPECT_EQ((2 + begin)->position() + begin[4].position(), 6);
  EXPECT_EQ(std::make_reverse_iterator(patches.end())->location(), "A5");
  EXPECT_TRUE(begin < begin + 1 && begin + 1 > begin && begin >= begin && begin <= begin);
  EXPECT_FALSE(begin < begin || begin > begin || begin != begin || begin == begin + 1);
  auto at = begin + 2;
  const Values steps = {(at++)->position() + 0.0, (++at)->position() + 0.0,
                        (at--)->position() + 0.0, (at -= 2)->position() + 0.0};
  EXPECT_EQ(steps, Values({2, 4, 4, 1}));
  // Entries are sorted by name.
  const auto keywords = inks.keywords();
  const auto found = std::lower_bound(
      keywords.begin(), keywords.end(), "SERIAL",
      [](const measdata::keyword& entry, std::string_view name) { return entry.name < name; });
  EXPECT_EQ(found->value, "7");
  const auto values = inks.keyword_values("COMPUTATIONAL_PARAMETERS");
  EXPECT_EQ(*(values.end() - 1), "two");
  EXPECT_EQ(inks.keyword_value("COMPUTATIONAL_PARAMETERS"), "one");
  const auto darkest = std::ranges::min_element(
      inks.patches(), {}, [](const measdata::patch& patch) { return patch.lab().value()[0]; });
  EXPECT_EQ(darkest->id(), "2");
}

TEST(CppHeader, MergedPatchesAndChannels) {
  const chart inks = chart::load_block(kInks);
  const auto merged = inks.merged_patches();
  ASSERT_EQ(merged.size(), 4U);
  const measdata::merged_patch cyan = merged[1];
  EXPECT_TRUE(cyan.name() == "cyan" && cyan.id() == "2" && cyan.location() == "A2");
  EXPECT_EQ(values_of(cyan.device()), Values({100, 0, 0, 0}));
  EXPECT_EQ(values_of(cyan.lab()), Values({50, 1.5, 2}));
  EXPECT_FALSE(cyan.xyz());
  ASSERT_TRUE(cyan.repeat_statistics());
  EXPECT_EQ(cyan.repeat_statistics()->repeat_count, 2);
  EXPECT_EQ(cyan.repeat_statistics()->de_max, 5.0);
  EXPECT_EQ(inks.paper_white().value().index(), 0);
  EXPECT_TRUE(inks.is_cmyk());

  ASSERT_EQ(inks.channels().size(), 4U);
  const measdata::channel first = inks.channels()[0];
  const auto wedge = first.wedge();
  EXPECT_EQ(wedge[0].index() * 10 + wedge[1].index(), 21);
  EXPECT_EQ(wedge[2].index(), -1);  // not another patch
  EXPECT_EQ(first.solid().value().index(), 1);
  EXPECT_FALSE(inks.channels()[1].solid());
  EXPECT_EQ(first.name(), "Cyan");
  const measdata::distinct_value last = *(first.distinct_values().end() - 1);
  EXPECT_EQ(Values({last.value, last.patches + 0.0}), Values({100, 2}));
  const chart spectral = chart::load_block(
      test::file_of("GRAY SPECTRAL_NM400 SPECTRAL_NM410", "0 0.25 0.5\n0 0.75 0.5\n1 0.125 0.5\n"));
  EXPECT_EQ(values_of(spectral.merged_patches()[0].spectrum()), Values({0.5, 0.5}));
  EXPECT_EQ(values_of(spectral.patches()[1].spectrum()), Values({0.75, 0.5}));
  const measdata::wavelength_range range = spectral.wavelengths().value();
  EXPECT_EQ(Values({range.start, range.end, range.step}), Values({400, 410, 10}));
}

TEST(CppHeader, AnswersAreEmptyWithoutData) {
  const chart ids = chart::load_block(test::file_of("SAMPLE_ID", "1\n"));
  const chart inks = chart::load_block(kInks);
  const measdata::patch patches[] = {chart().patches()[0], inks.patches()[5], ids.patches()[0],
                                     inks.patches()[~std::size_t{0} / 2 + 2]};
  for (const measdata::patch& patch : patches) {
    EXPECT_FALSE(patch.device() || patch.xyz() || patch.lab() || patch.spectrum());
    EXPECT_EQ(patch.name(), "");
  }
  for (const measdata::merged_patch& patch :
       {inks.merged_patches()[4], chart().merged_patches()[0]}) {
    EXPECT_FALSE(patch.device() || patch.xyz() || patch.lab() || patch.spectrum() ||
                 patch.repeat_statistics());
  }
  EXPECT_FALSE(ids.paper_white() || ids.wavelengths() || ids.illuminant() ||
               ids.has_keyword("ONE") || ids.keyword_value("ONE"));
  EXPECT_TRUE(ids.channels().empty() && chart().keywords().empty() && !inks.channels()[4].name());
  EXPECT_TRUE(chart().channels()[0].wedge().empty() && chart().messages().empty());
  // Numbers that the header itself writes before it asks are values like others.
  const chart marks =
      chart::load_block(test::file_of("XYZ_X XYZ_Y XYZ_Z", "0 0 0\n1.7976931348623157e308 1 1\n"));
  EXPECT_EQ(values_of(marks.patches()[0].xyz()), Values({0, 0, 0}));
  EXPECT_EQ(values_of(marks.patches()[1].xyz()).at(1), 1.0);
}

TEST(CppHeader, ContentsAreThoseOfTheFields) {
  std::string found;  // for each file a letter for each function that says yes
  for (const std::string fields :
       {"RGB_R RGB_G RGB_B", "CMY_C CMY_M CMY_Y", "XYZ_X XYZ_Y XYZ_Z", "LAB_L LAB_A LAB_B",
        "LAB_L LAB_C LAB_H", "SPECTRAL_NM400 SPECTRAL_NM410 SPECTRAL_NM420", "SAMPLE_ID OWN1 OWN2",
        "SAMPLE_LOC OWN1 OWN2", "SAMPLE_NAME OWN1 OWN2"}) {
    const chart one = chart::load_block(test::file_of(fields, "1 2 3\n"));
    char letter = 'a';
    for (const auto function :
         {&chart::is_rgb, &chart::is_cmy, &chart::has_device_data, &chart::has_xyz_data,
          &chart::has_lab_data, &chart::has_lch_data, &chart::has_spectral_data,
          &chart::has_color_data, &chart::has_sample_id_data, &chart::has_sample_loc_data,
          &chart::has_sample_name_data, &chart::is_cmyk}) {
      if ((one.*function)()) found += letter;
      ++letter;
    }
    found += ' ';
  }
  EXPECT_EQ(found, "ac bc d eh f gh i j k ");
}

TEST(CppHeader, MetadataAreThoseOfTheKeywords) {
  const chart named = chart::load_block(test::file_of(
      "SAMPLE_ID", "1\n",
      "INSTRUMENTATION \"Maker Model, D50, 2 degree, serial number 42, \"\nFILTER b\n"
      "MEASUREMENT_GEOMETRY a\nPOLARIZATION c\nMEASUREMENT_SOURCE d\nFILTER_STATUS e\n"
      "SAMPLE_BACKING f\nCOLORANT g\nMANUFACTURER h\nMATERIAL i\nPRINT_CONDITIONS j\n"
      "PROD_DATE k\nSERIAL l\nTARGET_TYPE m\nCOPYRIGHT n\n"));
  std::string answers;
  for (const auto function :
       {&chart::device_manufacturer, &chart::device_model, &chart::device_serial_number,
        &chart::device_geometry, &chart::device_filter, &chart::device_polarization,
        &chart::device_measurement_source, &chart::density_status, &chart::illuminant,
        &chart::observer, &chart::sample_backing, &chart::sample_colorant,
        &chart::sample_manufacturer, &chart::sample_material, &chart::sample_print_conditions,
        &chart::sample_production_date, &chart::sample_serial_number, &chart::sample_target_type,
        &chart::copyright}) {
    answers += std::string((named.*function)().value_or("-")) + ' ';
  }
  EXPECT_EQ(answers, "Maker Model 42 a b c d e D50 2 f g h i j k l m n ");
}

TEST(CppHeader, VersionAndDisplayColour) {
  std::ostringstream version;
  version << measdata::version_major() << '.' << measdata::version_minor() << '.'
          << measdata::version_bugfix();
  EXPECT_EQ(measdata::version(), version.str());
  EXPECT_EQ(measdata::lab_to_srgb({0, 0, 0}), measdata::srgb_values({0, 0, 0}));
  EXPECT_NEAR(measdata::lab_to_srgb({100, 0, 0})[1], 255, 0.5);
}

#ifdef MEASDATA_TEST_KIT
TEST(CppHeader, ChartsOfTheKitAreBorrowed) {
  mk_document* document = mk_open_block(kInks.size(), kInks.data(), "inks", MK_REPAIR);
  EXPECT_EQ(chart::borrow(mk_chart_handle(document, 0)).patches().size(), 5U);
  EXPECT_EQ(num_patches(mk_chart_handle(document, 0)), 5);  // not released
  EXPECT_FALSE(chart::borrow(mk_chart_handle(document, 1)));
  mk_close(&document);
}
#endif

}  // namespace
