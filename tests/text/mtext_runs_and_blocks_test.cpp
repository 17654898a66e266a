// What goes beside the HTML: runs with their positions, and paragraph formats.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/html_text.hpp"
#include "tests/text/mtext_cases.hpp"

TEST(MtextToHtml, WidthCodes) {
  CheckMtextCases({
      {"a width is a run to the end of its group",
       "\\W1.5;AB",
       "<p>AB</p>",
       {Stretched(0, 2, 150)}},
      {"at most 200", "\\W3;AB", "<p>AB</p>", {Stretched(0, 2, 200)}},
      {"at least 50", "\\W0.1;AB", "<p>AB</p>", {Stretched(0, 2, 50)}},
      {"0 is limited too", "\\W0;AB", "<p>AB</p>", {Stretched(0, 2, 50)}},
      {"so is a negative width", "\\W-1;AB", "<p>AB</p>", {Stretched(0, 2, 50)}},
      {"half a percent is added, then the rest is cut off",
       "\\W1.005;A",
       "<p>A</p>",
       // 1.005 * 100 is 100.49999999999999
       {Stretched(0, 1, 100)}},
      {"rounding up", "\\W0.876;A", "<p>A</p>", {Stretched(0, 1, 88)}},
      {"rounding down", "\\W0.874;A", "<p>A</p>", {Stretched(0, 1, 87)}},
      {"an infinite width is limited", "\\Winf;A", "<p>A</p>", {Stretched(0, 1, 200)}},
      {"a huge width is limited", "\\W1e300;A", "<p>A</p>", {Stretched(0, 1, 200)}},
      {"a huge negative width is limited", "\\W-1e300;A", "<p>A</p>", {Stretched(0, 1, 50)}},
      {"not-a-number has no effect", "\\Wnan;A", "<p>A</p>"},
      {"no number has no effect", "\\Wx;A", "<p>A</p>"},
      {"an empty argument has no effect", "\\W;A", "<p>A</p>"},
      {"overflow has no effect", "\\W1e999;A", "<p>A</p>"},
      {"trailing characters are ignored", "\\W1.5x;A", "<p>A</p>", {Stretched(0, 1, 150)}},
      {"a run of no characters is left out", "A\\W2;", "<p>A</p>"},
      {"without a semicolon the rest is the argument", "A\\W2 B", "<p>A</p>"},
  });
}

TEST(MtextToHtml, TrackingCodes) {
  CheckMtextCases({
      {"tracking", "\\T2;A", "<p>A</p>", {Tracked(0, 1, 200)}},
      {"no upper limit", "\\T50;A", "<p>A</p>", {Tracked(0, 1, 5000)}},
      {"a negative value is cut toward zero after adding a half",
       "\\T-0.5;A",
       "<p>A</p>",
       {Tracked(0, 1, -49)}},
      {"-0.01 becomes 0 and is no run", "\\T-0.01;A", "<p>A</p>"},
      {"-0.02 becomes -1", "\\T-0.02;A", "<p>A</p>", {Tracked(0, 1, -1)}},
      {"0 is no run", "\\T0;A", "<p>A</p>"},
      {"0.004 is no run", "\\T0.004;A", "<p>A</p>"},
      {"0.005 is 1", "\\T0.005;A", "<p>A</p>", {Tracked(0, 1, 1)}},
      {"beyond the integer's range it is limited",
       "\\T1e300;A",
       "<p>A</p>",
       {Tracked(0, 1, std::numeric_limits<std::int32_t>::max())}},
      {"below it too",
       "\\T-1e300;A",
       "<p>A</p>",
       {Tracked(0, 1, std::numeric_limits<std::int32_t>::min())}},
      {"not-a-number has no effect", "\\Tnan;A", "<p>A</p>"},
      {"no number has no effect", "\\Tx;A", "<p>A</p>"},
      {"an empty argument has no effect", "\\T;A", "<p>A</p>"},
  });
}

TEST(MtextToHtml, RunsEndWithTheirGroup) {
  CheckMtextCases({
      {"a run in the middle", "a{\\W2;bc}d", "<p>abcd</p>", {Stretched(1, 2, 200)}},
      {"a run of the text goes to its end", "a\\W2;b{c}d", "<p>abcd</p>", {Stretched(1, 3, 200)}},
      {"two codes of a group are overlapping runs",
       "{\\W2;a\\W1;b}c",
       "<p>abc</p>",
       {Stretched(0, 2, 200), Stretched(1, 1, 100)}},
      {"width and tracking are two runs",
       "\\W2;\\T2;a",
       "<p>a</p>",
       {Stretched(0, 1, 200), Tracked(0, 1, 200)}},
      {"the order is that of closing",
       "\\W2;a{\\T2;b}c",
       "<p>abc</p>",
       {Tracked(1, 1, 200), Stretched(0, 3, 200)}},
      {"inner groups first, then outer ones",
       "{\\W1;a{\\W1.1;b{\\W1.2;c}d}e}",
       "<p>abcde</p>",
       {Stretched(2, 1, 120), Stretched(1, 3, 110), Stretched(0, 5, 100)}},
      {"groups never closed close from the top down",
       "{\\W1;a{\\W1.1;b",
       "<p>ab</p>",
       {Stretched(1, 1, 110), Stretched(0, 2, 100)}},
      {"a marker after an inner group is the outer group's",
       "{{\\W1;a}\\W2;b}c",
       "<p>abc</p>",
       {Stretched(0, 1, 100), Stretched(1, 1, 200)}},
      {"a brace that is dropped ends no run", "\\W2;a}b", "<p>ab</p>", {Stretched(0, 2, 200)}},
      {"an ended scan ends the runs", "\\W2;ab\\Acd", "<p>ab</p>", {Stretched(0, 2, 200)}},
      {"a bad code leaves no marker", "\\Wx;\\W2;a", "<p>a</p>", {Stretched(0, 1, 200)}},
      {"an empty group has no run", "{\\W2;}a", "<p>a</p>"},
      {"a font code marks in its place", "a{b\\f|p1;c}", "<p>abc</p>", {FixedPitch(2, 1)}},
      {"a run over a break", "{\\W2;a\\Pb}c", "<p>a</p><p>bc</p>", {Stretched(0, 3, 200)}},
  });
}

TEST(MtextToHtml, PositionsCountUtf16Units) {
  CheckMtextCases({
      {"an ASCII character is one", "a\\W2;b", "<p>ab</p>", {Stretched(1, 1, 200)}},
      {"an escaped byte is one", "<>&\\W2;b", "<p>&lt;&gt;&amp;b</p>", {Stretched(3, 1, 200)}},
      {"a character of two bytes is one", "Ж\\W2;Ж", "<p>ЖЖ</p>", {Stretched(1, 1, 200)}},
      {"a character of three bytes is one", "文\\W2;文字", "<p>文文字</p>", {Stretched(1, 2, 200)}},
      {"a character of four bytes is two", "😀\\W2;😀😀", "<p>😀😀😀</p>", {Stretched(2, 4, 200)}},
      {"a paragraph break is one", "a\\P\\W2;b", "<p>a</p><p>b</p>", {Stretched(2, 1, 200)}},
      {"\\n is one", "a\\n\\W2;b", "<p>a</p><p>b</p>", {Stretched(2, 1, 200)}},
      {"a line break is one", "\\X\\x\\W2;b", "<p><br/><br/>b</p>", {Stretched(2, 1, 200)}},
      {"a non-breaking blank is one", "\\~\\W2;b", "<p>&nbsp;b</p>", {Stretched(1, 1, 200)}},
      {"an escaped backslash is one", "\\\\\\W2;b", "<p>\\b</p>", {Stretched(1, 1, 200)}},
      {"escaped braces are one each",
       "\\{\\}\\W2;b",
       "<p>&#123;&#125;b</p>",
       {Stretched(2, 1, 200)}},
      {"a \\U+ character is one", "\\U+4E2D\\W2;b", "<p>中b</p>", {Stretched(1, 1, 200)}},
      {"U+FFFF is one",
       "\\U+FFFF\\W2;b",
       "<p>\xEF\xBF\xBF"
       "b</p>",
       {Stretched(1, 1, 200)}},
      {"a \\U+ character beyond the basic plane is two",
       "\\U+1F600\\W2;b",
       "<p>😀b</p>",
       {Stretched(2, 1, 200)}},
      {"U+10000 is two",
       "\\U+10000\\W2;b",
       "<p>\xF0\x90\x80\x80"
       "b</p>",
       {Stretched(2, 1, 200)}},
      {"a character written as a pair of surrogates is one each",
       "\\U+D83D\\U+DE00\\W2;b",
       "<p>\xED\xA0\xBD\xED\xB8\x80"
       "b</p>",
       {Stretched(2, 1, 200)}},
      {"codes without text count nothing",
       "\\L\\l\\K\\k\\O\\o\\A1;\\Q1;\\C1;\\c1;\\H1;\\fArial;\\pqc;\\W2;b",
       "<p><u></u><s></s><span style=\"text-decoration:overline\"></span>"
       "<span style=\"color:rgb(255,0,0)\"><span style=\"color:rgb(0,0,1)\">"
       "<span style=\"font-size:0.0394pt\"><span style=\"font-family:Arial;\">b"
       "</span></span></span></span></p>",
       {Stretched(0, 1, 200)},
       {Aligned(0, "c")}},
      {"the letter of an unknown code is one", "\\M\\W2;b", "<p>Mb</p>", {Stretched(1, 1, 200)}},
      {"a stray continuation byte is none",
       "\x80\xBF\\W2;b",
       "<p>\x80\xBF"
       "b</p>",
       {Stretched(0, 1, 200)}},
      {"a stray lead byte is one",
       "\xC3\\W2;b",
       "<p>\xC3"
       "b</p>",
       {Stretched(1, 1, 200)}},
      {"bytes from 0xF0 are two",
       "\xF0\xF8\xFF\\W2;b",
       "<p>\xF0\xF8\xFF"
       "b</p>",
       {Stretched(6, 1, 200)}},
      {"0xEF is one",
       "\xEF\\W2;b",
       "<p>\xEF"
       "b</p>",
       {Stretched(1, 1, 200)}},
  });
}

TEST(MtextToHtml, PositionsCountStackedTextInBytes) {
  const std::string half =
      "<span style=\"vertical-align:super\">1</span>/<span style=\"vertical-align:sub\">2</span>";
  const std::string closed =
      "<span style=\"vertical-align:super\">1</span><span style=\"vertical-align:sub\">2</span>";
  CheckMtextCases({
      {"both texts and the separator",
       "\\S1/2;\\W2;b",
       "<p>" + half + "b</p>",
       {Stretched(3, 1, 200)}},
      {"a caret counts though it is not written",
       "\\S1^2;\\W2;b",
       "<p>" + closed + "b</p>",
       {Stretched(3, 1, 200)}},
      {"a separator alone counts",
       "\\S^;\\W2;b",
       "<p><span style=\"vertical-align:super\"></span><span "
       "style=\"vertical-align:sub\"></span>b</p>",
       {Stretched(1, 1, 200)}},
      {"lengths are bytes",
       "\\S上/下;\\W2;b",
       "<p><span style=\"vertical-align:super\">上</span>/<span "
       "style=\"vertical-align:sub\">下</span>b</p>",
       {Stretched(7, 1, 200)}},
      {"without a separator too", "\\S上;\\W2;b", "<p>上b</p>", {Stretched(3, 1, 200)}},
      {"an empty argument counts nothing", "\\S;\\W2;b", "<p>b</p>", {Stretched(0, 1, 200)}},
      {"an escaped byte is one", "\\S<;\\W2;b", "<p>&lt;b</p>", {Stretched(1, 1, 200)}},
  });
}

TEST(MtextToHtml, ParagraphFormats) {
  CheckMtextCases({
      {"centred", "\\pqc;a", "<p>a</p>", {}, {Aligned(0, "c")}},
      {"right", "\\pqr;a", "<p>a</p>", {}, {Aligned(0, "r")}},
      {"any character is an alignment", "\\pq*;a", "<p>a</p>", {}, {Aligned(0, "*")}},
      {"a digit too", "\\pq1;a", "<p>a</p>", {}, {Aligned(0, "1")}},
      {"one character only", "\\pqcr;a", "<p>a</p>", {}, {Aligned(0, "c")}},
      {"one character, not one byte", "\\pq文字;a", "<p>a</p>", {}, {Aligned(0, "文")}},
      {"one character of four bytes", "\\pq😀x;a", "<p>a</p>", {}, {Aligned(0, "😀")}},
      {"q alone is ignored", "\\pq;a", "<p>a</p>"},
      {"the last alignment counts", "\\pqc,qr;a", "<p>a</p>", {}, {Aligned(0, "r")}},
      {"an indent", "\\pi1.5;a", "<p>a</p>", {}, {{.textIndent = 1.5}}},
      {"a negative indent", "\\pi-2;a", "<p>a</p>", {}, {{.textIndent = -2}}},
      {"a left margin", "\\pl3;a", "<p>a</p>", {}, {{.leftMargin = 3}}},
      {"a right margin", "\\pr.25;a", "<p>a</p>", {}, {{.rightMargin = 0.25}}},
      {"all three",
       "\\pi-3,l4,r5;a",
       "<p>a</p>",
       {},
       {{.textIndent = -3, .leftMargin = 4, .rightMargin = 5}}},
      {"with an alignment",
       "\\pi1,l2,r3,qj;a",
       "<p>a</p>",
       {},
       {{.alignment = "j", .textIndent = 1, .leftMargin = 2, .rightMargin = 3}}},
      {"a block that says nothing is discarded", "\\pi0,l0,r0;a", "<p>a</p>"},
      {"an empty argument is discarded", "\\p;a", "<p>a</p>"},
      {"other fields are ignored", "\\px,z5,*;a", "<p>a</p>"},
      {"an x in front hides its field", "\\pxqc;a", "<p>a</p>"},
      {"an x field of its own does not", "\\px,qc;a", "<p>a</p>", {}, {Aligned(0, "c")}},
      {"a field of one character is ignored", "\\pi,l,r,t,qc;a", "<p>a</p>", {}, {Aligned(0, "c")}},
      {"field letters are lower case", "\\pI1,QC;a", "<p>a</p>"},
      {"a bad number leaves the field", "\\pix,l1;a", "<p>a</p>", {}, {{.leftMargin = 1}}},
      {"a bad number does not undo a good one", "\\pi2,ix;a", "<p>a</p>", {}, {{.textIndent = 2}}},
      {"a number out of range neither", "\\pi2,i1e999;a", "<p>a</p>", {}, {{.textIndent = 2}}},
      {"a later number replaces", "\\pi2,i3;a", "<p>a</p>", {}, {{.textIndent = 3}}},
      {"trailing characters are ignored", "\\pi2mm;a", "<p>a</p>", {}, {{.textIndent = 2}}},
      {"an infinite margin is a margin",
       "\\plinf;a",
       "<p>a</p>",
       {},
       {{.leftMargin = std::numeric_limits<double>::infinity()}}},
      {"a blank before a field hides it", "\\p qc;a", "<p>a</p>"},
      {"without a semicolon the rest is the argument",
       "a\\pqc,b",
       "<p>a</p>",
       {},
       {Aligned(0, "c")}},
  });
}

TEST(MtextToHtml, TabStops) {
  CheckMtextCases({
      {"one", "\\pt4;a", "<p>a</p>", {}, {Tabbed(0, {4})}},
      {"several", "\\pt1,2,3.5;a", "<p>a</p>", {}, {Tabbed(0, {1, 2, 3.5})}},
      {"a leading point", "\\pt1,.5;a", "<p>a</p>", {}, {Tabbed(0, {1, 0.5})}},
      {"in the order written", "\\pt9,3,6;a", "<p>a</p>", {}, {Tabbed(0, {9, 3, 6})}},
      {"a stop of 0 is a stop", "\\pt0;a", "<p>a</p>", {}, {Tabbed(0, {0})}},
      {"the first may be negative", "\\pt-1,2;a", "<p>a</p>", {}, {Tabbed(0, {-1, 2})}},
      {"a later negative one ends the list", "\\pt1,-2,3;a", "<p>a</p>", {}, {Tabbed(0, {1})}},
      {"another field ends the list and is read",
       "\\pt1,2,qc;a",
       "<p>a</p>",
       {},
       {{.alignment = "c", .tabStops = {1, 2}}}},
      {"an empty field ends the list", "\\pt1,,2;a", "<p>a</p>", {}, {Tabbed(0, {1})}},
      {"a number after the end is no stop",
       "\\pt1,qc,2;a",
       "<p>a</p>",
       {},
       {{.alignment = "c", .tabStops = {1}}}},
      {"t alone starts no list", "\\pt,1,2;a", "<p>a</p>"},
      {"a bad first stop is left out and the list goes on",
       "\\ptx,1,2;a",
       "<p>a</p>",
       {},
       {Tabbed(0, {1, 2})}},
      {"a bad later stop too", "\\pt1,.,2;a", "<p>a</p>", {}, {Tabbed(0, {1, 2})}},
      {"a stop out of range too", "\\pt1,1e999,2;a", "<p>a</p>", {}, {Tabbed(0, {1, 2})}},
      {"a second list is appended", "\\pt1,t2;a", "<p>a</p>", {}, {Tabbed(0, {1, 2})}},
      {"a type letter before a stop ends the list",
       "\\pt1,c2,3;a",
       "<p>a</p>",
       {},
       {Tabbed(0, {1})}},
      {"a stop of one digit", "\\pt5,6;a", "<p>a</p>", {}, {Tabbed(0, {5, 6})}},
      {"indent and stops",
       "\\pi-5,l5,t5;a",
       "<p>a</p>",
       {},
       {{.textIndent = -5, .leftMargin = 5, .tabStops = {5}}}},
  });
}

TEST(MtextToHtml, ParagraphFormatsAreNumberedByParagraph) {
  CheckMtextCases({
      {"the second paragraph", "a\\P\\pqc;b", "<p>a</p><p>b</p>", {}, {Aligned(1, "c")}},
      {"\\n counts too", "a\\n\\Pb\\pqc;", "<p>a</p><p></p><p>b</p>", {}, {Aligned(2, "c")}},
      {"a line break does not", "a\\X\\pqc;b", "<p>a<br/>b</p>", {}, {Aligned(0, "c")}},
      {"one for each paragraph",
       "\\pqc;a\\P\\pqr;b",
       "<p>a</p><p>b</p>",
       {},
       {Aligned(0, "c"), Aligned(1, "r")}},
      {"two in one paragraph are not merged",
       "\\pqc;\\pi1;a",
       "<p>a</p>",
       {},
       {Aligned(0, "c"), {.textIndent = 1}}},
      {"a format inside a group", "{\\pqc;a}", "<p>a</p>", {}, {Aligned(0, "c")}},
      {"breaks inside groups count",
       "{a\\P{b\\P}}\\pqc;",
       "<p>a</p><p>b</p><p></p>",
       {},
       {Aligned(2, "c")}},
  });
}
