#include "data/pdf/pdf_page.h"

#include <gmock/gmock.h>

#include <string>

#include "tests/data/pdf/pdf_reader.h"

namespace brovanta::data_tool {
namespace {

using testing::HasSubstr;

TEST(PdfPagesTest, PagesAreA4AndCarryTheTitle) {
  PdfPages pages("A list", "Somebody");
  pages.Draw("one", {}, 50, 50, 200);
  pages.EndPage();
  pages.Draw("two", {}, 50, 50, 200);
  pages.EndPage();
  const std::string info = test::ReadPdf("pdfinfo", pages.Finish());
  EXPECT_THAT(info, HasSubstr("A list\n"));
  EXPECT_THAT(info, HasSubstr("Somebody\n"));
  EXPECT_THAT(info, testing::ContainsRegex("Pages: +2\n"));
  EXPECT_THAT(info, HasSubstr("(A4)"));
}

TEST(PdfPagesTest, TextIsMeasuredAsItIsBroken) {
  PdfPages pages("", "");
  const TextStyle style;
  const double line = pages.HeightOf("word", style, 300);
  EXPECT_GT(line, style.points);
  EXPECT_LT(line, 2 * style.points);
  EXPECT_NEAR(pages.HeightOf("word word word", style, pages.WidthOf("word", style) + 1), 3 * line,
              0.5);
  EXPECT_NEAR(pages.WidthOf("wordword", style), 2 * pages.WidthOf("word", style), 1);
  TextStyle large = style;
  large.points *= 2;
  EXPECT_NEAR(pages.WidthOf("word", large), 2 * pages.WidthOf("word", style), 1);
  EXPECT_NEAR(pages.HeightOf("", style, 300), line, 0.01);
}

TEST(PdfPagesTest, ALongWordIsBrokenToo) {
  PdfPages pages("", "");
  const std::string word(60, 'w');
  EXPECT_GT(pages.HeightOf(word, {}, 100), 3 * pages.HeightOf("w", {}, 100));
}

// A reader of documents leaves hyphens at line ends out, so their room tells: nine letters fill a
// line, and with a hyphen only eight would be on it.
TEST(PdfPagesTest, ABrokenWordHasNoHyphens) {
  PdfPages pages("", "");
  const TextStyle style;
  const double width = pages.WidthOf(std::string(9, 'w'), style) + 1;
  const double line = pages.HeightOf("w", style, width);
  EXPECT_NEAR(pages.HeightOf(std::string(27, 'w'), style, width), 3 * line, 0.5);
  pages.Draw(std::string(27, 'w'), style, 50, 50, width);
  pages.EndPage();
  const std::string nine(9, 'w');
  EXPECT_EQ(test::ReadPdf("pdftotext", pages.Finish()),
            nine + "\n" + nine + "\n" + nine + "\n\n\f");
}

TEST(PdfPagesTest, TextOnOneLineEndsWhereItShould) {
  PdfPages pages("", "");
  pages.DrawLeftOf("two words", {}, 300, 50);
  pages.EndPage();
  const std::string words = test::ReadPdf("pdftotext", pages.Finish(), "-bbox");
  EXPECT_THAT(words, testing::ContainsRegex("xMax=\"(300\\.00|299\\.9)[^>]*>words<"));
}

TEST(PdfPagesTest, FontsAreEmbedded) {
  PdfPages pages("", "");
  pages.Draw("plain äöü €", {}, 50, 50, 300);
  pages.Draw("bold", {9, true, false, PANGO_ALIGN_LEFT}, 50, 80, 300);
  pages.Draw("slanted", {9, false, true, PANGO_ALIGN_RIGHT}, 50, 110, 300);
  pages.Line(50, 130, 300, 1);
  pages.Box(50, 140, 7);
  pages.EndPage();
  const std::string pdf = pages.Finish();
  EXPECT_EQ(test::ReadPdf("pdftotext", pdf), "plain äöü €\nbold\nslanted\n\n\f");
  EXPECT_THAT(test::ReadPdf("pdffonts", pdf), HasSubstr("emb"));
}

}  // namespace
}  // namespace brovanta::data_tool
