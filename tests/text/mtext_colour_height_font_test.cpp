// Codes whose argument becomes a span: colours, heights, fonts, and stacked
// text.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/html_text.hpp"
#include "tests/text/mtext_cases.hpp"

namespace {

std::string Colored(const std::string& rgb, const std::string& text) {
  return "<p><span style=\"color:rgb(" + rgb + ")\">" + text + "</span></p>";
}

std::string Sized(const std::string& points, const std::string& text) {
  return "<p><span style=\"font-size:" + points + "pt\">" + text + "</span></p>";
}

std::string Styled(const std::string& style, const std::string& text) {
  return "<p><span style=\"" + style + "\">" + text + "</span></p>";
}

std::string Stacked(const std::string& upper, const std::string& between,
                    const std::string& lower) {
  return "<p><span style=\"vertical-align:super\">" + upper + "</span>" + between +
         "<span style=\"vertical-align:sub\">" + lower + "</span></p>";
}

}  // namespace

TEST(MtextToHtml, ColourIndexCodes) {
  CheckMtextCases({
      {"red", "\\C1;a", Colored("255,0,0", "a")},
      {"index 0 is black", "\\C0;a", Colored("0,0,0", "a")},
      {"index 7 is white here", "\\C7;a", Colored("255,255,255", "a")},
      {"a computed index", "\\C21;a", Colored("255,101,50", "a")},
      {"the grey ramp", "\\C251;a", Colored("102,102,102", "a")},
      {"index 255 is black", "\\C255;a", Colored("0,0,0", "a")},
      {"index 256 is black", "\\C256;a", Colored("0,0,0", "a")},
      {"a negative index is black", "\\C-1;a", Colored("0,0,0", "a")},
      {"the largest integer is black", "\\C2147483647;a", Colored("0,0,0", "a")},
      {"the smallest integer is black", "\\C-2147483648;a", Colored("0,0,0", "a")},
      {"an integer out of range has no effect", "\\C2147483648;a", "<p>a</p>"},
      {"a large one neither", "\\C99999999999999999999999;a", "<p>a</p>"},
      {"leading blanks are accepted", "\\C \t1;a", Colored("255,0,0", "a")},
      {"a plus sign is accepted", "\\C+1;a", Colored("255,0,0", "a")},
      {"two signs are no number", "\\C+-1;a", "<p>a</p>"},
      {"trailing characters are ignored", "\\C1abc;a", Colored("255,0,0", "a")},
      {"the fraction is ignored", "\\C1.9;a", Colored("255,0,0", "a")},
      {"a hexadecimal number is its zero", "\\C0x5;a", Colored("0,0,0", "a")},
      {"leading zeros are decimal", "\\C010;a", Colored("255,0,0", "a")},
      {"no number has no effect", "\\Cred;a", "<p>a</p>"},
      {"an empty argument has no effect", "\\C;a", "<p>a</p>"},
      {"without a semicolon the rest is the argument", "b\\C1 a",
       "<p>b<span "
       "style=\"color:rgb(255,0,0)\"></span></p>"},
  });
}

TEST(MtextToHtml, TrueColourCodes) {
  CheckMtextCases({
      {"red is in bits 16 to 23", "\\c16711680;a", Colored("255,0,0", "a")},
      {"green is in bits 8 to 15", "\\c65280;a", Colored("0,255,0", "a")},
      {"blue is in bits 0 to 7", "\\c255;a", Colored("0,0,255", "a")},
      {"the top byte is ignored", "\\c3254779904;a", Colored("0,0,0", "a")},
      {"the largest value", "\\c4294967295;a", Colored("255,255,255", "a")},
      {"a value above it is out of range", "\\c4294967296;a", "<p>a</p>"},
      {"a minus sign negates modulo 2^32", "\\c-1;a", Colored("255,255,255", "a")},
      {"the largest magnitude negates to 1", "\\c-4294967295;a", Colored("0,0,1", "a")},
      {"a magnitude above it is out of range", "\\c-4294967296;a", "<p>a</p>"},
      {"no number has no effect", "\\cx;a", "<p>a</p>"},
      {"an empty argument has no effect", "\\c;a", "<p>a</p>"},
      {"a sign alone has no effect", "\\c-;a", "<p>a</p>"},
      {"leading blanks are accepted", "\\c 255;a", Colored("0,0,255", "a")},
  });
}

TEST(MtextToHtml, HeightCodes) {
  CheckMtextCases({
      {"the height divided by 25.4", "\\H25.4;a", Sized("1.0000", "a")},
      {"four decimals", "\\H1;a", Sized("0.0394", "a")},
      {"a relative height multiplies the base height of 2.54", "\\H2x;a", Sized("0.2000", "a")},
      {"the group closes the span", "{\\H2x;A}", Sized("0.2000", "A")},
      {"a relative height of 1", "\\H1x;a", Sized("0.1000", "a")},
      {"a height that rounds to nothing is still written", "\\H0.0001;a", Sized("0.0000", "a")},
      {"0 writes nothing", "\\H0;A", "<p>A</p>"},
      {"-0 writes nothing", "\\H-0;A", "<p>A</p>"},
      {"a negative height writes nothing", "\\H-1;A", "<p>A</p>"},
      {"a negative relative height writes nothing", "\\H-1x;A", "<p>A</p>"},
      {"0x is a relative height of 0", "\\H0x;A", "<p>A</p>"},
      {"no number has no effect", "\\Habc;A", "<p>A</p>"},
      {"an empty argument has no effect", "\\H;A", "<p>A</p>"},
      {"x alone is no number", "\\Hx;A", "<p>A</p>"},
      {"a capital X is a trailing character", "\\H25.4X;a", Sized("1.0000", "a")},
      {"only the last x is removed", "\\H25.4xx;a", Sized("2.5400", "a")},
      {"hexadecimal as the standard conversion reads it", "\\H0x1p4;a", Sized("0.6299", "a")},
      {"an exponent", "\\H2.54e1;a", Sized("1.0000", "a")},
      {"an exponent without digits is trailing text", "\\H25.4e;a", Sized("1.0000", "a")},
      {"a leading point", "\\H.254;a", Sized("0.0100", "a")},
      {"a comma is no decimal point", "\\H25,4;a", Sized("0.9843", "a")},
      {"overflow has no effect", "\\H1e400;a", "<p>a</p>"},
      {"underflow has no effect", "\\H1e-400;a", "<p>a</p>"},
      {"a subnormal value has no effect", "\\H4e-320;a", "<p>a</p>"},
      {"not-a-number is not greater than 0", "\\Hnan;a", "<p>a</p>"},
      {"infinity as it is formatted", "\\Hinf;a", Sized("inf", "a")},
      {"a product that overflows is infinite", "\\H1e308x;a", Sized("inf", "a")},
      {"the number text is cut after 63 characters", "\\H2.54e70;a",
       Sized("100000000000000007253143638152923512615837440964652195551821015", "a")},
      {"two heights nest", "\\H25.4;a\\H2x;b",
       "<p><span style=\"font-size:1.0000pt\">a<span style=\"font-size:0.2000pt\">b</span></span>"
       "</p>"},
      {"without a semicolon the rest is the argument", "b\\H25.4 a",
       "<p>b<span style=\"font-size:1.0000pt\"></span></p>"},
  });
}

TEST(MtextToHtml, RelativeHeightsFollowTheBaseHeight) {
  MtextLayout layout;
  EXPECT_EQ(MtextToHtml("\\H.5x;a", 50.8, layout), Sized("1.0000", "a"));
  EXPECT_EQ(MtextToHtml("\\H1x;a", 0, layout), "<p>a</p>");
  EXPECT_EQ(MtextToHtml("\\H1x;a", -1, layout), "<p>a</p>");
  EXPECT_EQ(MtextToHtml("\\H-1x;a", -25.4, layout), Sized("1.0000", "a"));
  EXPECT_EQ(MtextToHtml("\\H25.4;a", 0, layout), Sized("1.0000", "a"));
}

TEST(MtextToHtml, FontCodes) {
  const std::string arial = "font-family:Arial;";
  CheckMtextCases({
      {"a name", "\\fArial;a", Styled(arial, "a")},
      {"\\F is the same", "\\FArial;a", Styled(arial, "a")},
      {"a shape font is mapped", "\\Fromans.shx;a", Styled("font-family:Times New Roman;", "a")},
      {"letter case of a shape font", "\\FMONOTXT.SHX;a", Styled("font-family:Courier New;", "a")},
      {"an unknown shape font is Arial", "\\Fmyfont.shx;a", Styled(arial, "a")},
      {"a desktop font stays as it is", "\\fTimes New Roman;a",
       Styled("font-family:Times New Roman;", "a")},
      {"an extension stays", "\\farial.ttf;a", Styled("font-family:arial.ttf;", "a")},
      {"the family is not escaped", "\\fA<B>&\"C\";a", Styled("font-family:A<B>&\"C\";", "a")},
      {"a name of other letters", "\\f宋体;a", Styled("font-family:宋体;", "a")},
      {"bold", "\\fArial|b1;a", Styled(arial + "font-weight:bold;", "a")},
      {"italic", "\\fArial|i1;a", Styled(arial + "font-style:italic;", "a")},
      {"bold and italic", "\\fArial|b1|i1|c0|p0;a",
       Styled(arial + "font-weight:bold;font-style:italic;", "a")},
      {"the order of the fields does not matter", "\\fArial|i1|b1;a",
       Styled(arial + "font-weight:bold;font-style:italic;", "a")},
      {"b0 and i0 write nothing", "\\fArial|b0|i0|c0|p0;a", Styled(arial, "a")},
      {"only a 1 is bold", "\\fArial|b2;a", Styled(arial, "a")},
      {"what follows the 1 is ignored", "\\fArial|b12;a", Styled(arial + "font-weight:bold;", "a")},
      {"the last field of a kind counts", "\\fArial|b1|b0;a", Styled(arial, "a")},
      {"field letters are lower case", "\\fArial|B1|I1;a", Styled(arial, "a")},
      {"a field of one character is ignored", "\\fArial|b|i;a", Styled(arial, "a")},
      {"a short field does not undo a long one", "\\fArial|b1|b;a",
       Styled(arial + "font-weight:bold;", "a")},
      {"empty fields are ignored", "\\fArial|||b1;a", Styled(arial + "font-weight:bold;", "a")},
      {"other fields are ignored", "\\fArial|x1|q9;a", Styled(arial, "a")},
      {"an empty name with bold", "\\f|b1;a", Styled("font-weight:bold;", "a")},
      {"an empty name with italic", "\\f|i1;a", Styled("font-style:italic;", "a")},
      {"an empty name alone writes nothing", "\\f;a", "<p>a</p>"},
      {"an empty name with plain fields writes nothing", "\\f|b0|i0|c0|p34;a", "<p>a</p>"},
      {"bold of an outer group is not cleared", "\\fArial|b1;a{\\fArial|b0;b}",
       "<p><span style=\"font-family:Arial;font-weight:bold;\">a"
       "<span style=\"font-family:Arial;\">b</span></span></p>"},
      {"an odd pitch is fixed", "\\fArial|p1;ab", Styled(arial, "ab"), {FixedPitch(0, 2)}},
      {"pitch and family 49 is odd",
       "\\fCourier New|b0|i0|c0|p49;ab",
       Styled("font-family:Courier New;", "ab"),
       {FixedPitch(0, 2)}},
      {"an even pitch is not fixed", "\\fArial|p34;ab", Styled(arial, "ab")},
      {"a negative odd pitch is odd", "\\fArial|p-1;ab", Styled(arial, "ab"), {FixedPitch(0, 2)}},
      {"a bad pitch has no effect, the font has", "\\fArial|px;ab", Styled(arial, "ab")},
      {"a pitch out of range neither", "\\fArial|p99999999999;ab", Styled(arial, "ab")},
      {"a bad character set has no effect", "\\fArial|cx|b1;ab",
       Styled(arial + "font-weight:bold;", "ab")},
      {"an odd pitch without a name", "\\f|p1;ab", "<p>ab</p>", {FixedPitch(0, 2)}},
      {"two odd pitches of one code are two runs",
       "\\f|p1|p3;ab",
       "<p>ab</p>",
       {FixedPitch(0, 2), FixedPitch(0, 2)}},
      {"a fixed pitch ends with its group", "a{\\f|p1;bc}d", "<p>abcd</p>", {FixedPitch(1, 2)}},
      {"without a semicolon the rest is the argument", "\\fArial", Styled(arial, "")},
  });
}

TEST(MtextToHtml, StackedText) {
  CheckMtextCases({
      {"a slash is written", "\\S1/2;", Stacked("1", "/", "2")},
      {"a hash is written as a slash", "\\S1#2;", Stacked("1", "/", "2")},
      {"a caret is not written", "\\S1^2;", Stacked("1", "", "2")},
      {"the first separator counts", "\\S1/2#3^4;", Stacked("1", "/", "2#3^4")},
      {"a caret first", "\\S1^2/3;", Stacked("1", "", "2/3")},
      {"blanks stay", "\\S+0.1^ -0.2;", Stacked("+0.1", "", " -0.2")},
      {"an empty upper text", "\\S^2;", Stacked("", "", "2")},
      {"an empty lower text", "\\S2^;", Stacked("2", "", "")},
      {"a separator alone", "\\S/;", Stacked("", "/", "")},
      {"no separator, no spans", "\\Sabc;d", "<p>abcd</p>"},
      {"an empty argument", "\\S;a", "<p>a</p>"},
      {"both texts are escaped", "\\S<1>&/2<;", Stacked("&lt;1&gt;&amp;", "/", "2&lt;")},
      {"an argument without a separator is escaped", "\\S<1>;", "<p>&lt;1&gt;</p>"},
      {"codes inside are not read", "\\S\\C1/{2};", Stacked("\\C1", "/", "{2}")},
      {"without a semicolon the rest is the argument", "\\S1/2 rest", Stacked("1", "/", "2 rest")},
      {"letters of other scripts", "\\S上/下;", Stacked("上", "/", "下")},
  });
}

TEST(MtextToHtml, StackedTextIsNoSpanOfItsGroup) {
  CheckMtextCases({
      {"an end of overline finds no span", "\\S1/2;\\oa",
       "<p><span style=\"vertical-align:super\">1</span>/"
       "<span style=\"vertical-align:sub\">2</span></span>a</p>"},
      {"a group with a stack closes only its own spans", "{\\C1;\\S1^2;}a",
       "<p><span style=\"color:rgb(255,0,0)\"><span style=\"vertical-align:super\">1</span>"
       "<span style=\"vertical-align:sub\">2</span></span>a</p>"},
  });
}

TEST(MtextToHtml, ObliqueAndAlignmentCodesAreDropped) {
  CheckMtextCases({
      {"an oblique code", "\\Q15;a", "<p>a</p>"},
      {"any argument", "\\Qabc;a", "<p>a</p>"},
      {"an oblique code without a semicolon drops the rest", "a\\Q15 b", "<p>a</p>"},
      {"an alignment code", "\\A1;a", "<p>a</p>"},
      {"any argument of alignment", "\\Axyz;a", "<p>a</p>"},
      {"an alignment code without a semicolon ends the scan", "a\\Abc", "<p>a</p>"},
      {"with all groups closed", "{\\C1;a\\Abc",
       "<p><span style=\"color:rgb(255,0,0)\">a</span></p>"},
      {"an alignment code at the very end", "a\\A", "<p>a</p>"},
  });
}

TEST(MtextToHtml, ObliqueCodesAreCounted) {
  MtextLayout layout;
  MtextToHtml("\\Q1;a{\\Q2;b}\\Q\\P", 1, layout);
  EXPECT_EQ(layout.obliqueCount, 3);
}

TEST(MtextToHtml, CharacterSetsAboveTwoAreNonWestern) {
  const auto isNonWestern = [](const char* text) {
    MtextLayout layout;
    MtextToHtml(text, 1, layout);
    return layout.nonWesternCharset;
  };
  EXPECT_TRUE(isNonWestern("\\fSimSun|b0|i0|c134|p2;X"));
  EXPECT_TRUE(isNonWestern("\\f|c3;X"));
  EXPECT_TRUE(isNonWestern("\\F|c 204;X"));
  EXPECT_TRUE(isNonWestern("\\f|c134|c0;X"));
  EXPECT_TRUE(isNonWestern("\\f|c134"));
  EXPECT_FALSE(isNonWestern("\\f|c2;X"));
  EXPECT_FALSE(isNonWestern("\\f|c0;X"));
  EXPECT_FALSE(isNonWestern("\\f|c-5;X"));
  EXPECT_FALSE(isNonWestern("\\f|c;X"));
  EXPECT_FALSE(isNonWestern("\\f|C134;X"));
  EXPECT_FALSE(isNonWestern("\\f|c99999999999;X"));
  EXPECT_FALSE(isNonWestern("\\fc134;X"));
}

TEST(MtextToHtml, SimSunHasNoFixedPitchRun) {
  CheckMtextCases({{"2 is even", "\\fSimSun|b0|i0|c134|p2;X", Styled("font-family:SimSun;", "X")}});
}
