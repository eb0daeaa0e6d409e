// What the kit makes of CxF3 documents. Expectations are derived by hand.
#include "api/measdata.h"
#include "kit/cxf/plain_xml.h"
#include "kit/document.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using measkit::Document;
using measkit::Finding;
using measkit::Severity;

constexpr std::string_view kNamespace = "http://colorexchangeformat.com/CxF3-core";

std::unique_ptr<Document> open(const std::string& bytes) {
  return Document::open_block(bytes, "a.cxf", measkit::Opening::repair);
}

// The findings of the file and its tables that come from reading CxF, with their lines.
std::string codes_of(const Document& document) {
  std::string codes;
  const auto append = [&codes](const measkit::Findings& findings) {
    for (const Finding& one : findings.list()) {
      if (!one.code.starts_with("cxf-") && one.code != "too-many-tables") continue;
      codes.append(codes.empty() ? "" : " ").append(one.code);
      if (one.line != 0) codes += ":" + std::to_string(one.line);
    }
  };
  append(document.findings());
  for (std::size_t i = 0; i < document.size(); ++i) append(document.plain(i).table.findings);
  return codes;
}

// The fields and rows of a table, without the frame: "SAMPLE_ID LAB_L|1 50|2 60".
std::string rows_of(const Document& document, std::size_t table) {
  const std::string_view text = document.plain(table).text;
  std::string rows;
  const auto take = [&](std::string_view from, std::string_view to) {
    const std::size_t start = text.find(from) + from.size();
    rows += text.substr(start, text.find(to, start) - start);
  };
  take("BEGIN_DATA_FORMAT\n", "END_DATA_FORMAT");
  take("BEGIN_DATA\n", "\nEND_DATA");
  for (char& c : rows) c = c == '\t' ? ' ' : c == '\n' ? '|' : c;
  return rows;
}

std::string keyword_of(const Document& document, std::size_t table, const char* keyword) {
  const char* const value = get_value_of_keyword(document.plain(table).loaded.handle(), keyword);
  return value == nullptr ? "" : value;
}

// A document with one element a line: the objects begin in line 2.
std::string cxf(const std::string& objects, const std::string& specifications = "",
                const std::string& information = "") {
  return "<CxF xmlns=\"" + std::string(kNamespace) + "\">" + information +
         "<Resources><ObjectCollection>\n" + objects +
         "</ObjectCollection><ColorSpecificationCollection>" + specifications +
         "</ColorSpecificationCollection></Resources></CxF>";
}

std::string object(const std::string& type, const std::string& name, const std::string& parts) {
  return "<Object ObjectType=\"" + type + "\" Name=\"" + name + "\">" + parts + "</Object>\n";
}

std::string colours(const std::string& values) {
  return "<ColorValues>" + values + "</ColorValues>";
}

std::string device(const std::string& values) {
  return "<DeviceColorValues>" + values + "</DeviceColorValues>";
}

std::string lab(const std::string& l, const std::string& a, const std::string& b,
                const std::string& specification = "s") {
  return "<ColorCIELab ColorSpecification=\"" + specification + "\"><L>" + l + "</L><A>" + a +
         "</A><B>" + b + "</B></ColorCIELab>";
}

std::string spectrum(const std::string& values, const std::string& start = "400",
                     const std::string& specification = "s",
                     const std::string& element = "ReflectanceSpectrum") {
  return "<" + element + " StartWL=\"" + start + "\" ColorSpecification=\"" + specification +
         "\">" + values + "</" + element + ">";
}

std::string rgb(const std::string& value, const std::string& range = "") {
  return device("<ColorRGB>" + (range.empty() ? "" : "<MaxRange>" + range + "</MaxRange>") + "<R>" +
                value + "</R><G>0</G><B>0</B></ColorRGB>");
}

std::string ink(const std::string& name, const std::string& percentage) {
  return "<SpotColor><Name>" + name + "</Name><Percentage>" + percentage +
         "</Percentage></SpotColor>";
}

std::string cmyk(const std::string& cyan, const std::string& spots = "") {
  const std::string element = spots.empty() ? "ColorCMYK" : "ColorCMYKPlusN";
  return device("<" + element + "><Cyan>" + cyan +
                "</Cyan><Magenta>0</Magenta><Yellow>0</Yellow><Black>0</Black>" + spots + "</" +
                element + ">");
}

std::string place(const std::string& row, const std::string& column,
                  const std::string& page = "1") {
  const auto tag = [](const std::string& name, const std::string& value) {
    return "<Tag Name=\"" + name + "\" Value=\"" + value + "\"/>";
  };
  return "<TagCollection Name=\"Location\">" + tag("Page", page) + tag("Row", row) +
         tag("Column", column) + tag("SampleID", "-1") + "</TagCollection>";
}

std::string specification(const std::string& id, const std::string& device_parts = "",
                          const std::string& type = "Spectrum_Reflectance",
                          const std::string& light = "") {
  return "<ColorSpecification Id=\"" + id + "\">" + light + "<MeasurementSpec><MeasurementType>" +
         type + "</MeasurementType><WavelengthRange StartWL=\"400\" Increment=\"10\"/><Device>" +
         device_parts + "</Device></MeasurementSpec></ColorSpecification>";
}

const std::string kLight =
    "<TristimulusSpec><Illuminant>D65</Illuminant><Observer>10_Degree</Observer>"
    "<Method>E308_Table6</Method></TristimulusSpec>";

struct Case {
  const char* form;
  std::string text;
  std::vector<std::string> tables;
  std::string codes;
};

void PrintTo(const Case& shown, std::ostream* out) { *out << shown.form; }

class CxfForms : public testing::TestWithParam<Case> {};

TEST_P(CxfForms, BecomeTables) {
  const std::unique_ptr<Document> document = open(GetParam().text);
  std::vector<std::string> tables;
  for (std::size_t i = 0; i < document->size(); ++i) tables.push_back(rows_of(*document, i));
  EXPECT_EQ(tables, GetParam().tables);
  EXPECT_EQ(codes_of(*document), GetParam().codes);
}

const std::string kLit = specification("s", "", "Colorimetric_Reflectance", kLight);
const std::string kSpectral = specification("s");
const std::string kFifty = object("Standard", "x", colours(lab("50", "1", "2")));

INSTANTIATE_TEST_SUITE_P(
    Values, CxfForms,
    testing::Values(
        Case{"digits stay",
             cxf(object("S", "a &quot;b&quot; &#233;", colours(lab(" 50.10\n", "4.7e0", "+2.60"))),
                 kLit),
             {"SAMPLE_ID SAMPLE_NAME LAB_L LAB_A LAB_B|1 \"a \"\"b\"\" \xC3\xA9\" 50.10 4.7e0 "
              "+2.60"},
             ""},
        Case{"XYZ, LCh and densities",
             cxf(object("S", "",
                        colours("<ColorCIELCh ColorSpecification=\"s\"><L>5</L><C>0</C>"
                                "<H>0</H></ColorCIELCh><ColorDensity ColorSpecification="
                                "\"s\"><Density>1.30</Density><Status>T</Status><Filter>"
                                "Cyan</Filter></ColorDensity>")),
                 kLit),
             {"SAMPLE_ID LAB_L LAB_C LAB_H D_RED LAB_A LAB_B|"
              "1 5 0 0 1.30 0 0"},
             ""},
        Case{"a spectrum",
             cxf(object("S", "", colours(spectrum("0.5\t0.60\n0.7"))), kSpectral),
             {"SAMPLE_ID SPECTRAL_NM400 SPECTRAL_NM410 SPECTRAL_NM420|1 0.5 0.60 0.7"},
             ""},
        Case{"RGB of other ranges",
             cxf(object("S", "", rgb("128")) + object("S", "", rgb("12850", "25500")) +
                 object("S", "", rgb("1", "2"))),
             {"SAMPLE_ID RGB_R RGB_G RGB_B|1 128 0 0|2 128.50 0.00 0.00|3 127.5 0 0"},
             ""},
        Case{"inks by their names",
             cxf(object("S", "", cmyk("10", ink("Green", "30") + ink("Orange", "20"))) +
                 object("S", "", cmyk("40", ink("Orange", "50")))),
             {"SAMPLE_ID 6CLR_1 6CLR_2 6CLR_3 6CLR_4 6CLR_5 6CLR_6|"
              "1 10 0 0 0 30 20|2 40 0 0 0 0 50"},
             ""},
        Case{"CMYK, and CMY as spot colours",
             cxf(object("S", "", cmyk("10"))),
             {"SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K|1 10 0 0 0"},
             ""},
        Case{"CMY as spot colours",
             cxf(object("S", "",
                        device("<ColorCustom Name=\"x\">" + ink("Yellow", "3") + ink("Cyan", "1") +
                               ink("Magenta", "2") + "</ColorCustom>"))),
             {"SAMPLE_ID CMY_C CMY_M CMY_Y|1 1 2 3"},
             ""},
        Case{"a spectrum by points",
             cxf(object("S", "",
                        colours("<CustomSpectrum ColorSpecification=\"s\">"
                                "<SpectralPoint WL=\"550\">0.2</SpectralPoint>"
                                "<SpectralPoint WL=\"500\">0.1</SpectralPoint>"
                                "</CustomSpectrum>")),
                 kSpectral),
             {"SAMPLE_ID SPECTRAL_NM500 SPECTRAL_NM550|1 0.1 0.2"},
             ""},
        Case{"tags, tint and a place on two pages",
             cxf(object("S", "",
                        colours(lab("5", "6", "7")) + place("1", "27", "2") +
                            "<TagCollection><Tag Name=\"R_500\" Value=\"x y\"/>"
                            "</TagCollection><PhysicalAttributes><Quantity Units="
                            "\"TINT\">50</Quantity></PhysicalAttributes>") +
                     object("S", "", colours(lab("8", "9", "1")) + place("0", "0")),
                 kLit),
             {"SAMPLE_ID SAMPLE_LOC LAB_L LAB_A LAB_B TAG_1_R_500_TEXT TINT|"
              "1 2AB2 5 6 7 \"x y\" 50|2 1A1 8 9 1 \"\" \"\""},
             ""}));

const std::string kConditions =
    specification("s", "<DeviceIllumination>M0_Incandescent</DeviceIllumination>") +
    specification("t", "<DeviceIllumination>M2_UVExcluded</DeviceIllumination>");
const std::string kTwoTargets = object("Target", "Target1", rgb("1") + place("0", "0")) +
                                object("Target", "Target2", rgb("2") + place("0", "1"));
const std::string kHead = "SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B|";

INSTANTIATE_TEST_SUITE_P(
    Pairs, CxfForms,
    testing::Values(
        Case{"conditions by location, in another order than the targets",
             cxf(object("M0_Measurement", "M0_Measurement2",
                        colours(spectrum("0.2 0.3")) + place("0", "1")) +
                     object("M0_Measurement", "M0_Measurement1",
                            colours(spectrum("0.1 0.2")) + place("0", "0")) +
                     object("M2_Measurement", "M2_Measurement2",
                            colours(spectrum("0.4 0.5", "400", "t")) + place("0", "1")) +
                     kTwoTargets,
                 kConditions),
             {"SAMPLE_ID SAMPLE_LOC RGB_R RGB_G RGB_B SPECTRAL_NM400 SPECTRAL_NM410|"
              "1 A1 1 0 0 0.1 0.2|2 B1 2 0 0 0.2 0.3",
              "SAMPLE_ID SAMPLE_LOC RGB_R RGB_G RGB_B SPECTRAL_NM400 SPECTRAL_NM410|"
              "1 A1 1 0 0 nan nan|2 B1 2 0 0 0.4 0.5"},
             "cxf-pairs cxf-pairs cxf-unpaired"},
        Case{"numbers in names",
             cxf(object("Measurement", "Measurement2", colours(lab("5", "6", "7"))) +
                     object("Measurement", "Measurement1", colours(lab("8", "9", "1"))) +
                     object("Target", "Target1", rgb("1")) + object("Target", "Target2", rgb("2")),
                 kLit),
             {kHead + "1 1 0 0 8 9 1|2 2 0 0 5 6 7"},
             "cxf-pairs"},
        Case{"order, with two families of readings",
             cxf(object("OptTargets", "x", rgb("3")) +
                     object("Measurements", "x", colours(lab("5", "6", "7"))) +
                     object("OptMeasurements", "x", colours(lab("8", "9", "1"))) +
                     object("Targets", "x", rgb("1")),
                 kLit),
             {"SAMPLE_ID SAMPLE_NAME RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B|1 x 1 0 0 5 6 7",
              "SAMPLE_ID SAMPLE_NAME RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B|1 x 3 0 0 8 9 1"},
             "cxf-order cxf-order"},
        Case{"nothing pairs them",
             cxf(object("Measurement", "a", colours(lab("5", "6", "7"))) +
                     object("Target", "b", rgb("1")) + object("Target", "c", rgb("2")),
                 kLit),
             {"SAMPLE_ID SAMPLE_NAME RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B|"
              "1 b 1 0 0 nan nan nan|2 c 2 0 0 nan nan nan|3 a nan nan nan 5 6 7"},
             "cxf-unpaired"},
        Case{"several specifications in one object",
             cxf(object("S", "",
                        colours(spectrum("0.1 0.2") + spectrum("0.3 0.4", "400", "t") +
                                lab("5", "6", "7", "u"))),
                 kConditions + specification("u", "", "Colorimetric_Reflectance", kLight)),
             {"SAMPLE_ID LAB_L LAB_A LAB_B SPECTRAL_NM400 SPECTRAL_NM410|1 5 6 7 0.1 0.2",
              "SAMPLE_ID SPECTRAL_NM400 SPECTRAL_NM410|1 0.3 0.4"},
             ""},
        Case{"device values among the colours",
             cxf(object("Target", "",
                        colours("<ColorSRGB><R>1</R><G>2</G><B>3</B></ColorSRGB>" +
                                lab("5", "6", "7"))),
                 kLit),
             {kHead + "1 1 2 3 5 6 7"},
             "cxf-srgb:2"}));

const std::string kRoot = "<CxF xmlns=\"" + std::string(kNamespace) + "\">";
const std::string kOneTable = "SAMPLE_ID SAMPLE_NAME LAB_L LAB_A LAB_B|1 x 50 1 2";
std::string nested(std::size_t levels) {
  std::string text = kRoot;
  for (std::size_t i = 0; i < levels; ++i) text += "<a>";
  return text;
}
std::string utf16(std::string_view text) {
  std::string units = "\xFF\xFE";
  for (const char c : text) units.append(1, c).append(1, '\0');
  return units;
}

INSTANTIATE_TEST_SUITE_P(
    Deviations, CxfForms,
    testing::Values(
        Case{"no number, a decimal comma, not measured",
             cxf(object("S", "", colours(lab("50", "1,5", "x"))) +
                     object("S", "", colours(lab("50", "NaN", "12mm"))),
                 kLit),
             {"SAMPLE_ID LAB_L LAB_A LAB_B|1 50 1.5 nan|2 50 nan nan"},
             "cxf-decimal-commas:2 cxf-no-numbers:2"},
        Case{"spectra of other lengths, starts and without wavelengths",
             cxf(object("S", "", colours(spectrum("0.1 0.2"))) +
                     object("S", "", colours(spectrum("0.1 0.2"))) +
                     object("S", "", colours(spectrum("0.1 0.2 0.3"))) +
                     object("S", "", colours(spectrum("0.1 0.2", "410"))) +
                     object("S", "", colours(spectrum("0.1 0.2", "x"))),
                 kSpectral),
             {"SAMPLE_ID SPECTRAL_NM400 SPECTRAL_NM410|1 0.1 0.2|2 0.1 0.2|3 nan nan|"
              "4 nan nan|5 nan nan"},
             "cxf-wavelengths:6 cxf-wavelengths:4 cxf-wavelengths:5"},
        Case{"values without a field, and a missing specification",
             cxf(object("S", "x",
                        colours(lab("50", "1", "2") + "<ColorCIELab L=\"1\"/><ColorHSL/>") +
                            "<ColorDifferenceValues/>") +
                 "<y xmlns=\"other\"/>"),
             {kOneTable},
             "cxf-values-left-out:2 cxf-passed-over:3 cxf-light cxf-specification:2"},
        Case{"a GUID, and tags twice",
             cxf("<Object ObjectType=\"S\" Name=\"x\" GUID=\"1\">" + colours(lab("50", "1", "2")) +
                     "<TagCollection><Tag Name=\"t\" Value=\"1\"/><Tag Name=\"t\" Value=\"2\"/>"
                     "<Tag Name=\"t\" Value=\"1\"/><Tag Name=\"SAMPLE_LOC\" Value=\"A1\"/>\n"
                     "<Tag Name=\"SAMPLE_LOC\" Value=\"A2\"/></TagCollection></Object>",
                 kLit),
             {"SAMPLE_ID SAMPLE_NAME SAMPLE_LOC LAB_L LAB_A LAB_B t|1 x A1 50 1 2 1"},
             "cxf-passed-over:2 cxf-repeated-tags:3 cxf-repeated-tags:2"},
        Case{"cells of fields that elements fill, too",
             cxf(object("S", "x",
                        colours(lab("50", "1", "2")) +
                            "<TagCollection Name=\"Fields\"><Tag Name=\"LAB_B\" Value=\"3\"/>"
                            "<Tag Name=\"END_DATA\" Value=\"4\"/></TagCollection>"),
                 kLit),
             {"SAMPLE_ID SAMPLE_NAME LAB_L LAB_A LAB_B TAG_2_END_DATA_TEXT|1 x 50 1 3 4"},
             ""},
        Case{"cut off",
             cxf(kFifty, kLit).substr(0, cxf(kFifty, kLit).size() - 90),
             {kOneTable},
             "cxf-malformed:3 cxf-light cxf-specification:2"},
        Case{"two roots", cxf(kFifty, kLit) + "\n<a/>", {kOneTable}, "cxf-malformed:4"},
        Case{"zero bytes behind the root",
             cxf(kFifty, kLit) + std::string("\n\0\0", 3),
             {kOneTable},
             ""},
        Case{"UTF-16",
             utf16("<?xml version='1.0' encoding='UTF-16'?>" + cxf(kFifty, kLit)),
             {kOneTable},
             ""},
        Case{"an encoding that there is not",
             "<?xml version='1.0' encoding='x-none'?>" + cxf(kFifty, kLit),
             {kOneTable},
             ""},
        Case{"an entity bomb",
             "<!DOCTYPE CxF [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;\">]>" + cxf("&b;"),
             {},
             "cxf-document-type:1"},
        Case{"a million levels", nested(1000000), {}, "cxf-limits:1 cxf-passed-over:1"},
        Case{"an attribute and a text of some megabytes",
             cxf(object("S", std::string(4000000, 'x'),
                        colours(lab("50", "1", std::string(4000000, '1')))),
                 kLit),
             {"SAMPLE_ID LAB_L LAB_A LAB_B|1 50 1 nan"},
             "cxf-limits"},
        Case{"no values", cxf(object("S", "x", "")), {}, "cxf-without-values"},
        Case{"CxF2", "<CxF xmlns=\"http://colorexchangeformat.com/v2\"/>", {}, "cxf-older"},
        Case{"CxF1", "<CXF/>", {}, "cxf-older"}, Case{"another root", "<a/>", {}, ""}));

TEST(Cxf, KeywordsTellTheConditions) {
  const std::string device =
      "<Manufacturer>Maker</Manufacturer><Model>One</Model><SerialNumber>7</SerialNumber>"
      "<DeviceFilter>Filter_UVExcluded</DeviceFilter>"
      "<DevicePolarization>false</DevicePolarization>";
  const std::string information =
      "<FileInformation><Creator>A \"b\"</Creator><Description>c\nd</Description>"
      "<Tag Name=\"MY TAG\" Value=\"e\"/><Tag Name=\"BEGIN_DATA\" Value=\"f\"/></FileInformation>";
  const auto document = open(
      cxf(kFifty, specification("s", device, "Colorimetric_Reflectance", kLight), information));
  ASSERT_EQ(document->size(), 1U);
  void* const handle = document->plain(0).loaded.handle();
  EXPECT_STREQ(device_manufacturer(handle), "Maker");
  EXPECT_STREQ(device_model(handle), "One");
  EXPECT_STREQ(device_serial_number(handle), "7");
  EXPECT_STREQ(device_filter(handle), "UV");
  EXPECT_STREQ(device_polarization(handle), "no");
  EXPECT_STREQ(illuminant(handle), "D65");
  EXPECT_STREQ(observer(handle), "10");
  EXPECT_EQ(keyword_of(*document, 0, "ORIGINATOR"), "A 'b'");
  EXPECT_EQ(keyword_of(*document, 0, "DESCRIPTOR"), "c d");
  EXPECT_EQ(keyword_of(*document, 0, "MY_TAG"), "e");
  EXPECT_EQ(keyword_of(*document, 0, "COMPUTATIONAL_PARAMETERS"), "ASTM E308 Table 6");
  EXPECT_EQ(codes_of(*document), "cxf-left-out:2");
}

TEST(Cxf, ConditionsNameTheCharts) {
  const auto document =
      open(cxf(object("S", "", colours(spectrum("0.1 0.2") + spectrum("0.3 0.4", "400", "t"))),
               kConditions));
  ASSERT_EQ(document->size(), 2U);
  EXPECT_EQ(document->chart_name(0), "a.cxf, M0");
  EXPECT_EQ(document->chart_name(1), "a.cxf, M2");
  EXPECT_EQ(document->charts()[1].conditions.m->value, "M2");
}

TEST(Cxf, EmissionIsThatOfADisplay) {
  const std::string xyz =
      "<ColorCIEXYZ ColorSpecification=\"s\"><X>95</X><Y>100</Y><Z>108</Z></ColorCIEXYZ>";
  const auto document = open(cxf(object("S", "", colours(xyz) + rgb("255")),
                                 specification("s", "", "Colorimetric_Emissive")));
  ASSERT_EQ(document->size(), 1U);
  EXPECT_TRUE(document->charts()[0].is_display);
  EXPECT_FALSE(has_color_data(document->plain(0).loaded.handle()));  // no patch is white
}

class EventLog final : public measkit::cxf::XmlReceiver {
 public:
  bool begin(const measkit::cxf::XmlName& name,
             std::span<const measkit::cxf::XmlAttribute> attributes, std::size_t offset) override {
    log.append(std::to_string(offset)).append("<").append(name.uri).append(":").append(name.local);
    for (const auto& [uri, local, value] : attributes) {
      log.append(" ").append(uri).append(":").append(local).append("=").append(value);
    }
    log += ">";
    return true;
  }
  void text(std::string_view piece) override { log += piece; }
  void end() override { log += "</>"; }
  std::string log;
};

TEST(Cxf, PlainXmlIsReadAsExpatReadsIt) {
  const std::string plain[] = {
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- c --><a x=\"1\" y='&lt;\"2'> <b/>\n</a >\n",
      "<p:a xmlns:p='u' xmlns='v' p:x='1' x='2'><b xmlns=''/><c xmlns:p='w'><p:d/></c>t</p:a>",
      "<a>1 &amp; &#65;]] \xC3\xA9 > \"'<!-- & < --></a><!--e-->"};
  const std::string others[] = {"<a>\r</a>",
                                "<a>]]></a>",
                                "<a>\x01</a>",
                                "<a>\xC0\x80</a>",
                                "<a x='\t'/>",
                                "<a x='1' x='2'/>",
                                "<a x='1'y='2'/>",
                                "<p:a/>",
                                "<a xmlns:p=''/>",
                                "<a><b></a></b>",
                                "<a/><b/>",
                                "<a>&b;</a>",
                                "<a x='<'/>",
                                "<!DOCTYPE a><a/>",
                                "<a><![CDATA[x]]></a>",
                                "<a><!-- -- --></a>",
                                "<a>",
                                "x<a/>",
                                "<a xmlns:p='u' xmlns:q='u' p:x='1' q:x='2'/>",
                                "<a xmlns='u' xmlns='v'/>",
                                "<a/>x",
                                "",
                                "<a x/>"};
  for (const std::string& text : plain) {
    EventLog fast, expat;
    EXPECT_TRUE(read_plain_xml(text, fast)) << text;
    EXPECT_EQ(read_xml(text, expat).end, measkit::cxf::XmlEnd::complete) << text;
    EXPECT_EQ(fast.log, expat.log) << text;
  }
  for (const std::string& text : others) {
    EventLog fast;
    EXPECT_FALSE(read_plain_xml(text, fast)) << text;
  }
}

// Twice the input may take twice the time, not four times.
TEST(Cxf, ManyTypesTagsAndSpecificationsMakeFewTables) {
  std::string objects;
  for (int i = 0; i < 4000; ++i) {
    const std::string n = std::to_string(i);
    objects += object(n + "Measurement", n,
                      colours(lab("5", "6", "7", "s" + n)) + "<TagCollection><Tag Name=\"t" + n +
                          "\" Value=\"1\"/></TagCollection>");
    objects += object(n + "Target", n, rgb("1"));
    objects += object("S", n, colours(lab("5", "6", "7", "s" + n)));
  }
  const auto document = open(cxf(objects));
  EXPECT_LE(document->size(), 33U);
  EXPECT_NE(codes_of(*document).find("too-many-tables"), std::string::npos);
}

}  // namespace
