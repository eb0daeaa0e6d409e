// Input that nobody should write: it must give an answer, never a crash.
#include "api/measdata.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

// The sum of all answers' bytes, so that the sanitizers see each of them read.
class Reader {
 public:
  void read(const char* text) {
    if (text != nullptr) sum_ += std::string_view(text).size();
  }
  void read(const double* values, int count) {
    for (int i = 0; values != nullptr && i < count; ++i) sum_ += values[i] > 0.0 ? 1 : 0;
  }
  void read(int number) { sum_ += static_cast<std::size_t>(number != 0); }
  std::size_t sum() const { return sum_; }

 private:
  std::size_t sum_ = 0;
};

void query_patches(void* data, Reader& reader) {
  std::vector<double> out(static_cast<std::size_t>(num_device_channels(data)) + 3);
  for (const auto question : {has_device_data, has_xyz_data, has_lab_data, has_lch_data,
                              has_spectral_data, has_color_data, has_sample_id_data}) {
    reader.read(question(data));
  }
  for (int patch = -1; patch <= std::min(num_patches(data), 20); ++patch) {
    reader.read(get_id_from_patch(data, patch));
    reader.read(get_loc_from_patch(data, patch));
    reader.read(get_name_from_patch(data, patch));
    get_dev_from_patch(data, patch, out.data());
    get_xyz_from_patch(data, patch, out.data());
    get_lab_from_patch(data, patch, out.data());
    lab_to_srgb(out.data(), out.data());
    reader.read(get_spectrum_from_patch(data, patch), spectral_size(data));
    reader.read(out.data(), 3);
  }
}

void query_indices(void* handle, Reader& reader) {
  std::vector<double> out(static_cast<std::size_t>(num_device_channels(handle)) + 3);
  DeStats stats = {};
  for (int index = -1; index <= std::min(num_indices(handle), 20); ++index) {
    reader.read(get_name_from_index(handle, index));
    get_dev_from_index(handle, index, out.data());
    get_lab_from_index(handle, index, out.data());
    get_de_stats_from_index(handle, index, &stats);
    reader.read(get_spectrum_from_index(handle, index), spectral_size(handle));
    reader.read(out.data(), 3);
  }
  reader.read(get_paperwhite_index(handle));
}

void query_channels(void* handle, Reader& reader) {
  for (int channel = -1; channel <= num_device_channels(handle); ++channel) {
    reader.read(get_device_channel_name(handle, channel));
    reader.read(get_solid_index(handle, channel));
    for (int i = -1; i <= std::min(num_distinct_dev_values(handle, channel), 9); ++i) {
      reader.read(get_distinct_dev_value_count(handle, channel, i));
      reader.read(get_distinct_dev_value(handle, channel, i) > 0.0 ? 1 : 0);
    }
    for (int step = -1; step <= std::min(num_wedge_steps(handle, channel), 9); ++step) {
      reader.read(get_wedge_index(handle, channel, step));
    }
  }
}

void query_texts(void* handle, Reader& reader) {
  for (const auto question :
       {device_manufacturer, device_model, device_serial_number, device_geometry, device_filter,
        device_polarization, device_measurement_source, density_status, illuminant, observer,
        sample_backing, sample_material, copyright, parse_messages}) {
    reader.read(question(handle));
  }
  for (int i = -1; i <= std::min(num_keywords(handle), 20); ++i) {
    reader.read(get_keyword(handle, i));
    reader.read(get_value(handle, i));
    reader.read(num_keyword_values(handle, get_keyword(handle, i)));
  }
}

// Asks everything that can be asked.
void query_everything(void* handle) {
  Reader reader;
  query_patches(handle, reader);
  query_patches(pass_unique_data(handle), reader);
  query_indices(handle, reader);
  query_channels(handle, reader);
  query_texts(handle, reader);
  const volatile std::size_t used = reader.sum();
  static_cast<void>(used);
}

const std::string kFields =
    "SAMPLE_ID SAMPLE_NAME CMYK_C CMYK_M CMYK_Y CMYK_K XYZ_X XYZ_Y XYZ_Z "
    "LAB_L LAB_A LAB_B MEAN_DE nm400 nm420 nm440";
const std::string kRows =
    "1 \"a b\" 0 0 0 0 80 85 70 90 0 0 0.1 0.5 0.6 0.7\n"
    "2 c 100 0 0 0 20 25 70 55 -37 -50 1.1 0,5 0,6 0,7\n";

TEST(HostileInput, EveryTruncationAndEveryFlippedByte) {
  const std::string text =
      test::file_of(kFields, kRows,
                    "SERIAL \"1\" # c\nINSTRUMENTATION \"M N, D50, 2 degree, white backing\"\n"
                    "WEIGHTING_FUNCTION \"OBSERVER, 2\"\nNUMBER_OF_FIELDS 16\n");
  test::Handle handle;
  for (int mode = 0; mode <= 1; ++mode) {
    set_parse_mode(handle, mode);
    for (std::size_t length = 0; length <= text.size(); ++length) {
      handle.load(std::string(text.data(), length));  // a copy, so that a read past the end is seen
      query_everything(handle);
    }
    for (std::size_t at = 0; at < text.size(); ++at) {
      for (const char odd : {'\0', '\xFF', '"', '\r', '#', ';', ' ', '9'}) {
        std::string broken = text;
        broken[at] = odd;
        handle.load(broken);
        query_everything(handle);
      }
    }
  }
}

TEST(HostileInput, RandomBytes) {
  std::mt19937 random(5);
  test::Handle handle;
  for (int i = 0; i < 2000; ++i) {
    std::string bytes(random() % 300, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() % 256);
    set_parse_mode(handle, i % 2);
    handle.load(bytes);
    query_everything(handle);
  }
}

TEST(HostileInput, LinesAndListsOfAMegabyte) {
  const std::string long_word(1 << 20, 'x');
  const std::string many_quotes(1 << 20, '"');
  std::string many_words;
  for (int i = 0; i < 200000; ++i) many_words += "w" + std::to_string(i % 50000) + " ";
  std::string proposals;  // names that each propose a spectral prefix of their own
  for (int i = 0; i < 100000; ++i) proposals += "A" + std::to_string(i % 7) + "B100 A001 ";
  test::Handle handle;
  for (const std::string& line : {long_word, many_quotes, many_words, proposals}) {
    for (const std::string& text : {line, "CGATS.17\n" + line, "CGATS.17\nSERIAL " + line,
                                    test::file_of(line, ""), test::file_of(kFields, line + "\n"),
                                    test::file_of("SAMPLE_ID", line + "\n" + line + "\n")}) {
      handle.load(text);
      query_everything(handle);
    }
  }
}

TEST(HostileInput, ManyLinesOfAKind) {
  std::string keywords, identifiers, carriage_returns(1 << 20, '\r'), rows;
  for (int i = 0; i < 100000; ++i) {
    keywords += "K" + std::to_string(i) + " 1\n";
    identifiers += "DATA_FORMAT_IDENTIFIER F" + std::to_string(i) + "\n";
    rows += i % 2 == 0 ? "1 2\n" : "1 2 3\n";
  }
  test::Handle handle;
  EXPECT_EQ(handle.load(test::file_of("SAMPLE_ID", "1\n", keywords + identifiers)), 1);
  EXPECT_EQ(num_patches(handle), 1);
  EXPECT_EQ(handle.load(test::file_of("SAMPLE_ID", rows)), 0);
  EXPECT_EQ(handle.load(carriage_returns), 0);
  set_parse_mode(handle, 1);
  EXPECT_EQ(handle.load(carriage_returns), 1);
  EXPECT_EQ(num_patches(handle), 0);
}

TEST(HostileInput, CountsThatLieReserveNothing) {
  const test::Loaded lying(test::file_of(
      "SAMPLE_ID", "1\n", "NUMBER_OF_SETS 2147483647\nNUMBER_OF_FIELDS 2147483647\n"));
  EXPECT_EQ(lying.result, 0);
  EXPECT_EQ(lying.messages(), "DATA_FORMAT has wrong NUMBER_OF_FIELDS!\n");
}

}  // namespace
