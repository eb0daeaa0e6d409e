// The C interface of the kit.
#include "kit/measkit.h"

#include "api/measdata.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace {

const std::string kTwoTables =
    "CGATS.17\nNUMBER_OF_SETS 7\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\n"
    "BEGIN_DATA\n1 50 1 2\nEND_DATA\nBEGIN_DATA\n2 60 3 4\n3 70 5 6\nEND_DATA\n";

TEST(Measkit, ADocumentHasChartsTextsAndFindings) {
  mk_document* document = mk_open_block(kTwoTables.size(), kTwoTables.data(), "a/b.txt", MK_REPAIR);
  ASSERT_EQ(mk_num_charts(document), 2);
  EXPECT_STREQ(mk_chart_name(document, 0), "b.txt");
  EXPECT_STREQ(mk_chart_name(document, 1), "b.txt, table 2");
  EXPECT_EQ(num_patches(mk_chart_handle(document, 0)), 1);
  EXPECT_EQ(num_patches(mk_chart_handle(document, 1)), 2);
  std::size_t length = 0;
  const char* const plain = mk_plain_text(document, 0, &length);
  ASSERT_EQ(std::string_view(plain).size(), length);
  EXPECT_NE(std::string_view(plain).find("NUMBER_OF_SETS 1\n"), std::string_view::npos);
  EXPECT_EQ(mk_num_findings(document, -1), 0);
  ASSERT_EQ(mk_num_findings(document, 0), 1);
  EXPECT_STREQ(mk_finding_code(document, 0, 0), "wrong-count");
  EXPECT_STREQ(mk_finding_sentence(document, 0, 0), "NUMBER_OF_SETS is 7, but there are 1 rows.");
  EXPECT_EQ(mk_finding_severity(document, 0, 0), MK_REPAIRED);
  EXPECT_EQ(mk_finding_line(document, 0, 0), 2);
  EXPECT_NE(std::string_view(mk_json(document)).find("\"wrong-count\""), std::string_view::npos);
  EXPECT_NE(std::string_view(mk_html(document)).find("NUMBER_OF_SETS is 7"),
            std::string_view::npos);
  mk_close(&document);
  EXPECT_EQ(document, nullptr);
  mk_close(&document);
  mk_close(nullptr);
}

TEST(Measkit, AsIsAnswersLikeTheLibrary) {
  mk_document* document = mk_open_block(kTwoTables.size(), kTwoTables.data(), nullptr, MK_AS_IS);
  ASSERT_EQ(mk_num_charts(document), 1);
  std::size_t length = 0;
  EXPECT_EQ(std::string(mk_plain_text(document, 0, &length)), kTwoTables);
  EXPECT_EQ(mk_num_findings(document, 0), 0);
  EXPECT_NE(mk_json(document), nullptr);
  mk_close(&document);
}

TEST(Measkit, ComparesTheChartsOfDocuments) {
  const std::string other =
      "CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\n"
      "BEGIN_DATA\n3 71 5 6\n2 62 3 4\nEND_DATA\n";
  mk_document* first = mk_open_block(kTwoTables.size(), kTwoTables.data(), "a", MK_REPAIR);
  mk_document* second = mk_open_block(other.size(), other.data(), "b", MK_REPAIR);
  const mk_compare_options options = {MK_MATCH_ID, MK_DE76, 0, 0.0, 0.0};
  mk_comparison* comparison = mk_compare(first, 1, second, 0, &options);
  ASSERT_EQ(mk_num_compared(comparison), 2);
  EXPECT_EQ(mk_comparison_refusal(comparison), nullptr);
  int reference[2] = {}, sample[2] = {};
  mk_compared_patches(comparison, reference, sample);
  EXPECT_EQ(reference[1], 1);
  EXPECT_EQ(sample[1], 0);
  double values[2] = {}, figure = 0.0;
  EXPECT_EQ(mk_compared_measure(comparison, "dl", values), 1);
  EXPECT_EQ(values[0], 2.0);
  EXPECT_EQ(mk_compared_measure(comparison, "de01", values), 0);
  EXPECT_EQ(mk_figure(comparison, "all.de76.mean", &figure), 1);
  EXPECT_EQ(figure, 1.5);
  EXPECT_EQ(mk_figure(comparison, "paper.de76.mean", &figure), 0);
  EXPECT_NE(std::string_view(mk_comparison_json(comparison)).find("\"formula\": \"de76\""),
            std::string_view::npos);
  EXPECT_NE(std::string_view(mk_comparison_html(comparison)).find("</html>"),
            std::string_view::npos);
  mk_close_comparison(&comparison);
  const mk_compare_options by_name = {MK_MATCH_NAME, MK_DE00, 0, 0.0, 0.0};
  comparison = mk_compare(first, 1, second, 0, &by_name);
  EXPECT_EQ(mk_num_compared(comparison), 0);
  EXPECT_STREQ(mk_comparison_refusal(comparison),
               "The charts cannot be matched by names: they do not both have them.");
  mk_close_comparison(&comparison);
  EXPECT_EQ(mk_compare(first, 2, second, 0, nullptr), nullptr);
  mk_close(&first);
  mk_close(&second);
}

TEST(Measkit, WhatDoesNotExistAnswersNothing) {
  mk_document* unreadable = mk_open_file("no-such-file", MK_REPAIR);
  ASSERT_NE(unreadable, nullptr);
  EXPECT_STREQ(mk_finding_code(unreadable, -1, 0), "not-opened");
  EXPECT_NE(mk_html(unreadable), nullptr);
  for (mk_document* const document : {unreadable, static_cast<mk_document*>(nullptr)}) {
    for (const int chart : {-2, 0, 1}) {
      std::size_t length = 1;
      EXPECT_EQ(mk_plain_text(document, chart, &length), nullptr);
      EXPECT_EQ(length, 0U);
      EXPECT_EQ(mk_chart_name(document, chart), nullptr);
      EXPECT_EQ(mk_chart_handle(document, chart), nullptr);
      EXPECT_EQ(mk_num_findings(document, chart) + mk_num_more_findings(document, chart), 0);
    }
    for (const int finding : {-1, 1}) {
      EXPECT_EQ(mk_finding_code(document, -1, finding), nullptr);
      EXPECT_EQ(mk_finding_sentence(document, -1, finding), nullptr);
      EXPECT_EQ(mk_finding_severity(document, -1, finding), MK_NOTE);
      EXPECT_EQ(mk_finding_line(document, -1, finding), 0);
    }
    EXPECT_EQ(mk_num_charts(document), 0);
  }
  EXPECT_EQ(mk_json(nullptr), nullptr);
  EXPECT_EQ(mk_html(nullptr), nullptr);
  EXPECT_EQ(mk_html_of(nullptr, 1), nullptr);
  mk_close(&unreadable);
}

}  // namespace
