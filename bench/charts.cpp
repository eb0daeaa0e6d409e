#include "bench/charts.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace bench {
namespace {

constexpr int kBands = 36;
constexpr int kInks = 4;

class Random {
 public:
  std::uint32_t below(std::uint32_t limit) {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>((state_ >> 32U) % limit);
  }

 private:
  std::uint64_t state_ = 1;
};

class Writer {
 public:
  explicit Writer(char separator) : separator_(separator) {}

  void text(std::string_view text) { text_ += text; }
  void next_cell() { text_ += separator_; }
  void integer(std::uint32_t value) {
    char digits[10];
    text_.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
  }
  // value / 10^decimals
  void number(std::uint32_t value, std::uint32_t decimals) {
    std::uint32_t scale = 1;
    for (std::uint32_t i = 0; i < decimals; ++i) scale *= 10;
    integer(value / scale);
    text_ += '.';
    for (value %= scale; decimals > 0; --decimals, value %= scale) {
      scale /= 10;
      text_ += static_cast<char>('0' + value / scale);
    }
  }
  std::string take() { return std::move(text_); }

 private:
  std::string text_;
  char separator_;
};

using Inks = std::vector<std::uint32_t>;

void write_inks(Writer& writer, const Inks& inks, std::size_t row) {
  for (std::size_t ink = 0; ink < kInks; ++ink) {
    writer.next_cell();
    writer.number(inks[(row * kInks + ink) % inks.size()], 2);
  }
}

void write_xyz(Writer& writer, Random& random) {
  for (int i = 0; i < 3; ++i) {
    writer.next_cell();
    writer.number(random.below(960000), 4);
  }
}

void write_lab(Writer& writer, Random& random) {
  writer.next_cell();
  writer.number(random.below(1000000), 4);
  for (int i = 0; i < 2; ++i) {
    writer.next_cell();
    if (random.below(2) != 0) writer.text("-");
    writer.number(random.below(800000), 4);
  }
}

// Numbers below 100,000 / 10^decimals.
void write_spectrum(Writer& writer, Random& random, std::uint32_t decimals = 5) {
  for (int band = 0; band < kBands; ++band) {
    writer.next_cell();
    writer.number(random.below(100000), decimals);
  }
}

Inks make_inks(int rows, Random& random) {
  Inks inks(static_cast<std::size_t>(rows) * kInks);
  for (std::uint32_t& ink : inks) ink = random.below(10001);
  return inks;
}

void begin(Writer& writer, std::string_view fields, bool has_spectra, int rows) {
  writer.text("CGATS.17\nORIGINATOR\t\"bench\"\nNUMBER_OF_FIELDS\t");
  std::uint32_t count = has_spectra ? kBands + 1 : 1;
  for (const char c : fields) count += c == '\t' ? 1 : 0;
  writer.integer(count);
  writer.text("\nBEGIN_DATA_FORMAT\n");
  writer.text(fields);
  for (std::uint32_t band = 0; has_spectra && band < kBands; ++band) {
    writer.text("\tSPECTRAL_NM");
    writer.integer(380 + 10 * band);
  }
  writer.text("\nEND_DATA_FORMAT\nNUMBER_OF_SETS\t");
  writer.integer(static_cast<std::uint32_t>(rows));
  writer.text("\nBEGIN_DATA\n");
}

}  // namespace

std::string spectral_chart(int rows, int distinct_rows) {
  Writer writer('\t');
  begin(writer,
        "SAMPLE_ID\tSAMPLE_NAME\tCMYK_C\tCMYK_M\tCMYK_Y\tCMYK_K\tXYZ_X\tXYZ_Y\tXYZ_Z\tLAB_L\tLAB_A"
        "\tLAB_B",
        true, rows);
  Random random;
  const Inks inks = make_inks(distinct_rows, random);
  for (int row = 0; row < rows; ++row) {
    writer.integer(static_cast<std::uint32_t>(row + 1));
    writer.text("\tpatch_");
    writer.integer(static_cast<std::uint32_t>(row + 1));
    write_inks(writer, inks, static_cast<std::size_t>(row));
    write_xyz(writer, random);
    write_lab(writer, random);
    write_spectrum(writer, random);
    writer.text("\n");
  }
  writer.text("END_DATA\n");
  return writer.take();
}

std::string percent_chart(int rows) {
  Writer writer('\t');
  begin(writer, "SAMPLE_ID\tCMYK_C\tCMYK_M\tCMYK_Y\tCMYK_K", true, rows);
  Random random;
  const Inks inks = make_inks(rows, random);
  for (int row = 0; row < rows; ++row) {
    writer.integer(static_cast<std::uint32_t>(row + 1));
    write_inks(writer, inks, static_cast<std::size_t>(row));
    write_spectrum(writer, random, 3);
    writer.text("\n");
  }
  writer.text("END_DATA\n");
  return writer.take();
}

std::string narrow_chart(int rows, int distinct_rows) {
  Writer writer('\t');
  begin(writer, "SAMPLE_ID\tCMYK_C\tCMYK_M\tCMYK_Y\tCMYK_K\tLAB_L\tLAB_A\tLAB_B", false, rows);
  Random random;
  const Inks inks = make_inks(distinct_rows, random);
  for (int row = 0; row < rows; ++row) {
    writer.integer(static_cast<std::uint32_t>(row + 1));
    write_inks(writer, inks, static_cast<std::size_t>(row));
    write_lab(writer, random);
    writer.text("\n");
  }
  writer.text("END_DATA\n");
  return writer.take();
}

std::string semicolon_table(int rows) {
  Writer writer(';');
  writer.text("SAMPLE_ID;SAMPLE_NAME;CMYK_C;CMYK_M;CMYK_Y;CMYK_K;");
  writer.text("XYZ_X;XYZ_Y;XYZ_Z;LAB_L;LAB_A;LAB_B\n");
  Random random;
  const Inks inks = make_inks(rows, random);
  for (int row = 0; row < rows; ++row) {
    writer.integer(static_cast<std::uint32_t>(row + 1));
    writer.text(";patch_");
    writer.integer(static_cast<std::uint32_t>(row + 1));
    write_inks(writer, inks, static_cast<std::size_t>(row));
    write_xyz(writer, random);
    write_lab(writer, random);
    writer.text("\n");
  }
  return writer.take();
}

std::string single_patch_chart(int rows) {
  Writer writer('\t');
  begin(writer, "SAMPLE_ID\tGRAY", true, rows);
  Random random;
  for (int row = 0; row < rows; ++row) {
    writer.integer(static_cast<std::uint32_t>(row + 1));
    writer.text("\t50");
    write_spectrum(writer, random);
    writer.text("\n");
  }
  writer.text("END_DATA\n");
  return writer.take();
}

std::string cxf_document(int patches) {
  Random random;
  Writer writer(' ');
  writer.text(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<cc:CxF xmlns:cc=\"http://colorexchangeformat.com/CxF3-core\">\n<cc:Resources>\n"
      "<cc:ObjectCollection>\n");
  for (int patch = 0; patch < patches; ++patch) {
    const auto number = static_cast<std::uint32_t>(patch + 1);
    writer.text("\t<cc:Object ObjectType=\"Sample\" Name=\"\" Id=\"p");
    writer.integer(number);
    writer.text(
        "\">\n\t\t<cc:CreationDate>2026-01-02T03:04:05Z</cc:CreationDate>\n\t\t<cc:ColorValues>\n"
        "\t\t\t<cc:ReflectanceSpectrum StartWL=\"380\" ColorSpecification=\"s\">");
    for (int band = 0; band < kBands; ++band) {
      if (band != 0) writer.next_cell();
      writer.number(random.below(10000), 4);
    }
    writer.text(
        "</cc:ReflectanceSpectrum>\n\t\t</cc:ColorValues>\n\t\t<cc:DeviceColorValues>\n"
        "\t\t\t<cc:ColorCMYK ColorSpecification=\"d\">\n");
    for (const char* const ink : {"Cyan", "Magenta", "Yellow", "Black"}) {
      writer.text("\t\t\t\t<cc:");
      writer.text(ink);
      writer.text(">");
      writer.number(random.below(10000), 2);
      writer.text("</cc:");
      writer.text(ink);
      writer.text(">\n");
    }
    writer.text(
        "\t\t\t</cc:ColorCMYK>\n\t\t</cc:DeviceColorValues>\n"
        "\t\t<cc:TagCollection Name=\"Location\">\n\t\t\t<cc:Tag Name=\"SampleID\" Value=\"");
    writer.integer(number);
    writer.text("\"/>\n\t\t</cc:TagCollection>\n\t</cc:Object>\n");
  }
  const auto specification = [&writer](const char* id, const char* type) {
    writer.text("<cc:ColorSpecification Id=\"");
    writer.text(id);
    writer.text("\"><cc:MeasurementSpec><cc:MeasurementType>");
    writer.text(type);
    writer.text(
        "</cc:MeasurementType><cc:GeometryChoice><cc:UnknownGeometry>45/0</cc:UnknownGeometry>"
        "</cc:GeometryChoice><cc:WavelengthRange StartWL=\"380\" Increment=\"10\"/>"
        "</cc:MeasurementSpec></cc:ColorSpecification>\n");
  };
  writer.text("</cc:ObjectCollection>\n<cc:ColorSpecificationCollection>\n");
  specification("s", "Spectrum_Reflectance");
  specification("d", "Colorimetric_Reflectance");
  writer.text("</cc:ColorSpecificationCollection>\n</cc:Resources>\n</cc:CxF>\n");
  return writer.take();
}

std::string keyword_file(int count) {
  Writer writer('\t');
  writer.text("CGATS.17\n");
  for (int i = 0; i < count; ++i) {
    writer.text("KEYWORD_");
    writer.integer(static_cast<std::uint32_t>(i));
    writer.text("\t\"value of a keyword\"\n");
  }
  writer.text("BEGIN_DATA_FORMAT\nSAMPLE_ID GRAY LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\n");
  writer.text("BEGIN_DATA\n1 50 60.5 0.25 -1.75\nEND_DATA\n");
  return writer.take();
}

std::string wide_file(int count) {
  Writer writer('\t');
  writer.text("CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID");
  for (int i = 1; i < count; ++i) {
    writer.text("\tFIELD_");
    writer.integer(static_cast<std::uint32_t>(i));
  }
  writer.text("\nEND_DATA_FORMAT\nBEGIN_DATA\n1");
  for (int i = 1; i < count; ++i) writer.text("\t12.5");
  writer.text("\nEND_DATA\n");
  return writer.take();
}

}  // namespace bench
