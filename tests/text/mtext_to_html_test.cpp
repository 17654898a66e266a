#include "text/mtext_to_html.hpp"

#include <gtest/gtest.h>

#include "tests/support/html_text.hpp"
#include "tests/text/mtext_cases.hpp"

TEST(MtextToHtml, PlainTextIsOneParagraph) {
  CheckMtextCases({
      {"an empty text is an empty paragraph", "", "<p></p>"},
      {"one letter", "A", "<p>A</p>"},
      {"words and blanks stay", "Hello  World ", "<p>Hello  World </p>"},
      {"less-than is escaped", "a<b", "<p>a&lt;b</p>"},
      {"greater-than is escaped", "a>b", "<p>a&gt;b</p>"},
      {"ampersand is escaped", "a&b", "<p>a&amp;b</p>"},
      {"an entity of the text is escaped once", "&lt;", "<p>&amp;lt;</p>"},
      {"quotes are not escaped", "\"'`", "<p>\"'`</p>"},
      {"percent codes are none of this language", "%%c10 %%d", "<p>%%c10 %%d</p>"},
      {"a semicolon alone is text", ";;", "<p>;;</p>"},
      {"a caret alone is text", "^I^J", "<p>^I^J</p>"},
      {"line feeds and tabs are ordinary bytes", "a\n\tb", "<p>a\n\tb</p>"},
      {"control bytes are ordinary", "\x01\x1f\x7f", "<p>\x01\x1f\x7f</p>"},
      {"two-byte characters stay whole", "Ж", "<p>Ж</p>"},
      {"three-byte characters stay whole", "文字", "<p>文字</p>"},
      {"four-byte characters stay whole", "😀", "<p>😀</p>"},
      {"the text ends at its first NUL", std::string("ab\0cd", 5), "<p>ab</p>"},
      {"a text that starts with NUL is empty", std::string("\0A", 2), "<p></p>"},
  });
}

TEST(MtextToHtml, ParagraphAndLineBreaks) {
  CheckMtextCases({
      {"\\P starts a paragraph", "a\\Pb", "<p>a</p><p>b</p>"},
      {"\\n starts a paragraph too", "a\\nb", "<p>a</p><p>b</p>"},
      {"\\N is no code", "a\\Nb", "<p>aNb</p>"},
      {"\\P at the start leaves an empty paragraph", "\\Pa", "<p></p><p>a</p>"},
      {"\\P at the end leaves an empty paragraph", "a\\P", "<p>a</p><p></p>"},
      {"\\P takes no semicolon", "a\\P;b", "<p>a</p><p>;b</p>"},
      {"each break counts", "\\P\\P\\n", "<p></p><p></p><p></p><p></p>"},
      {"\\X breaks the line", "a\\Xb", "<p>a<br/>b</p>"},
      {"\\x breaks the line too", "a\\xb", "<p>a<br/>b</p>"},
      {"\\~ is a blank that does not break", "a\\~b", "<p>a&nbsp;b</p>"},
      {"break and line break", "a\\X\\Pb", "<p>a<br/></p><p>b</p>"},
  });
}

TEST(MtextToHtml, EscapedCharacters) {
  CheckMtextCases({
      {"an escaped backslash", "a\\\\b", "<p>a\\b</p>"},
      {"what follows an escaped backslash is text", "\\\\P", "<p>\\P</p>"},
      {"two escaped backslashes", "\\\\\\\\", "<p>\\\\</p>"},
      {"an escaped opening brace", "\\{a", "<p>&#123;a</p>"},
      {"an escaped closing brace", "a\\}", "<p>a&#125;</p>"},
      {"escaped braces are no group", "\\{\\O;a\\}b",
       "<p>&#123;<span style=\"text-decoration:overline\">;a&#125;b</span></p>"},
      {"an escaped backslash before a brace", "\\\\{a}", "<p>\\a</p>"},
  });
}

TEST(MtextToHtml, UnderlineAndStrikeThroughAreNotClosedByThemselves) {
  CheckMtextCases({
      {"underline", "\\La\\lb", "<p><u>a</u>b</p>"},
      {"strike-through", "\\Ka\\kb", "<p><s>a</s>b</p>"},
      {"an underline left on stays open", "\\La", "<p><u>a</p>"},
      {"a strike-through left on stays open", "\\Ka", "<p><s>a</p>"},
      {"an underline is not closed with its group", "{\\La}b", "<p><u>ab</p>"},
      {"a strike-through is not closed with its group", "{\\Ka}b", "<p><s>ab</p>"},
      {"an end without a start is written", "a\\l\\k", "<p>a</u></s></p>"},
      {"two starts are two tags", "\\L\\La\\l", "<p><u><u>a</u></p>"},
      {"underline over a break", "\\La\\Pb\\l", "<p><u>a</p><p>b</u></p>"},
      {"the two may cross", "\\La\\Kb\\lc\\kd", "<p><u>a<s>b</u>c</s>d</p>"},
      {"they take no semicolon", "\\L;a\\l;", "<p><u>;a</u>;</p>"},
  });
}

TEST(MtextToHtml, OverlineIsASpanOfItsGroup) {
  CheckMtextCases({
      {"overline", "\\Oa\\ob", "<p><span style=\"text-decoration:overline\">a</span>b</p>"},
      {"an overline left on is closed at the end", "\\Oa",
       "<p><span style=\"text-decoration:overline\">a</span></p>"},
      {"an overline is closed with its group", "{\\Oa}b",
       "<p><span style=\"text-decoration:overline\">a</span>b</p>"},
      {"an end without a start is written", "a\\ob", "<p>a</span>b</p>"},
      {"an end closes any span of the group", "\\C1;a\\ob",
       "<p><span style=\"color:rgb(255,0,0)\">a</span>b</p>"},
      {"an end in an inner group does not count for the outer one", "\\Oa{b\\oc}d",
       "<p><span style=\"text-decoration:overline\">ab</span>cd</span></p>"},
      {"two ends after one start", "\\Oa\\o\\ob",
       "<p><span style=\"text-decoration:overline\">a</span></span>b</p>"},
      {"overline over a break", "{\\Oa\\Pb}c",
       "<p><span style=\"text-decoration:overline\">a</p><p>b</span>c</p>"},
  });
}

TEST(MtextToHtml, GroupsCloseTheirSpans) {
  CheckMtextCases({
      {"a group writes nothing itself", "{a}", "<p>a</p>"},
      {"an empty group", "a{}b", "<p>ab</p>"},
      {"nested groups", "{{{a}}}", "<p>a</p>"},
      {"closing braces without a group are dropped", "}}A", "<p>A</p>"},
      {"a closing brace too many", "{a}}b", "<p>ab</p>"},
      {"a group that is never closed", "{a", "<p>a</p>"},
      {"a span ends with its group", "{\\C1;a}b",
       "<p><span style=\"color:rgb(255,0,0)\">a</span>b</p>"},
      {"a span of the text ends with the text", "\\C1;a",
       "<p><span style=\"color:rgb(255,0,0)\">a</span></p>"},
      {"all spans of a group end together", "{\\C1;\\C5;a}b",
       "<p><span style=\"color:rgb(255,0,0)\"><span style=\"color:rgb(0,0,255)\">a</span></span>b"
       "</p>"},
      {"an inner group ends before the outer one", "{\\C1;a{\\C5;b}c}d",
       "<p><span style=\"color:rgb(255,0,0)\">a<span style=\"color:rgb(0,0,255)\">b</span>c</span>d"
       "</p>"},
      {"groups never closed end from the top down", "{\\C1;a{\\H25.4;b",
       "<p><span style=\"color:rgb(255,0,0)\">a<span style=\"font-size:1.0000pt\">b</span></span>"
       "</p>"},
      {"a dropped brace closes no span", "\\C1;a}b",
       "<p><span style=\"color:rgb(255,0,0)\">ab</span></p>"},
      {"a span stays open over a break inside its group", "{\\C1;a\\Pb}c",
       "<p><span style=\"color:rgb(255,0,0)\">a</p><p>b</span>c</p>"},
      {"a break inside nested groups", "{\\C1;{\\C5;a\\Pb}}",
       "<p><span style=\"color:rgb(255,0,0)\"><span style=\"color:rgb(0,0,255)\">a</p><p>b</span>"
       "</span></p>"},
      {"groups one after the other", "{\\C1;a}{\\C5;b}",
       "<p><span style=\"color:rgb(255,0,0)\">a</span><span style=\"color:rgb(0,0,255)\">b</span>"
       "</p>"},
      {"a brace inside an argument belongs to it", "{\\C1};a}b",
       "<p><span style=\"color:rgb(255,0,0)\">a</span>b</p>"},
      {"a backslash inside an argument belongs to it", "\\C1\\P;a",
       "<p><span style=\"color:rgb(255,0,0)\">a</span></p>"},
  });
}

TEST(MtextToHtml, UnknownCodesDropTheBackslashOnly) {
  CheckMtextCases({
      {"a letter that is no code", "\\M+C5FF8", "<p>M+C5FF8</p>"},
      {"\\N", "\\N", "<p>N</p>"},
      {"\\B, \\D, \\E, \\G", "\\B\\D\\E\\G", "<p>BDEG</p>"},
      {"\\I, \\J, \\R, \\V", "\\I\\J\\R\\V", "<p>IJRV</p>"},
      {"\\Y and \\Z", "\\Y\\Z", "<p>YZ</p>"},
      {"\\a, \\b, \\d, \\e", "\\a\\b\\d\\e", "<p>abde</p>"},
      {"\\g, \\h, \\i, \\j", "\\g\\h\\i\\j", "<p>ghij</p>"},
      {"\\m, \\q, \\r, \\s", "\\m\\q\\r\\s", "<p>mqrs</p>"},
      {"\\t, \\u, \\v", "\\t\\u\\v", "<p>tuv</p>"},
      {"\\w, \\y, \\z", "\\w\\y\\z", "<p>wyz</p>"},
      {"a digit", "\\0\\9", "<p>09</p>"},
      {"punctuation", "\\;\\-\\[\\]\\^\\_\\|", "<p>;-[]^_|</p>"},
      {"a blank", "\\ a", "<p> a</p>"},
      {"a byte that is escaped", "\\<\\>\\&", "<p>&lt;&gt;&amp;</p>"},
      {"the first byte of a character", "\\Ж", "<p>Ж</p>"},
      {"\\U without a plus", "\\U1F600", "<p>U1F600</p>"},
      {"\\U+ without a digit", "\\U+G", "<p>U+G</p>"},
      {"\\U+ at the end", "\\U+", "<p>U+</p>"},
      {"\\U at the end", "\\U", "<p>U</p>"},
      {"\\u+ is not \\U+", "\\u+0041", "<p>u+0041</p>"},
      {"an unknown code leaves its argument as text", "\\M1;a", "<p>M1;a</p>"},
      {"a backslash at the end is dropped", "a\\", "<p>a</p>"},
      {"a backslash alone", "\\", "<p></p>"},
      {"the last of three backslashes is dropped", "\\\\\\", "<p>\\</p>"},
      {"a backslash at the end of an open group", "{\\C1;a\\",
       "<p><span style=\"color:rgb(255,0,0)\">a</span></p>"},
  });
}

TEST(MtextToHtml, UnicodeCodes) {
  CheckMtextCases({
      {"four digits", "\\U+00B0", "<p>°</p>"},
      {"lower-case digits", "\\U+00b0", "<p>°</p>"},
      {"one digit", "\\U+9x", "<p>\tx</p>"},
      {"two digits", "\\U+41g", "<p>Ag</p>"},
      {"six digits", "\\U+000041", "<p>A</p>"},
      {"a seventh digit is text", "\\U+0000411", "<p>A1</p>"},
      {"five digits reach beyond the basic plane", "\\U+1F600", "<p>😀</p>"},
      {"digits that follow belong to the code", "\\U+4e2d5", "<p>\xF1\x8E\x8B\x95</p>"},
      {"no semicolon is taken", "\\U+0041;", "<p>A;</p>"},
      {"the character is escaped", "\\U+003C\\U+003E\\U+0026", "<p>&lt;&gt;&amp;</p>"},
      {"a brace from a code opens no group", "\\U+007B\\C1;a\\U+007D",
       "<p>{<span style=\"color:rgb(255,0,0)\">a}</span></p>"},
      {"a backslash from a code starts none", "\\U+005CP", "<p>\\P</p>"},
      {"last character of one byte", "\\U+7F", "<p>\x7F</p>"},
      {"first character of two bytes", "\\U+80", "<p>\xC2\x80</p>"},
      {"last character of two bytes", "\\U+7FF", "<p>\xDF\xBF</p>"},
      {"first character of three bytes", "\\U+800", "<p>\xE0\xA0\x80</p>"},
      {"last character of three bytes", "\\U+FFFF", "<p>\xEF\xBF\xBF</p>"},
      {"first character of four bytes", "\\U+10000", "<p>\xF0\x90\x80\x80</p>"},
      {"the last code point", "\\U+10FFFF", "<p>\xF4\x8F\xBF\xBF</p>"},
      {"beyond the last code point nothing is checked", "\\U+110000", "<p>\xF4\x90\x80\x80</p>"},
      {"a surrogate is written as it stands", "\\U+D800", "<p>\xED\xA0\x80</p>"},
      {"two codes", "\\U+0041\\U+0042", "<p>AB</p>"},
      {"code point 0 ends the HTML", "a\\U+0000x\\P", "<p>a"},
  });
}

TEST(MtextToHtml, EmptyTextLeavesTheLayoutAlone) {
  MtextLayout layout;
  layout.obliqueCount = 7;
  layout.runs = {Stretched(1, 2, 3)};
  EXPECT_EQ(MtextToHtml("", 1, layout), "<p></p>");
  EXPECT_EQ(layout.obliqueCount, 7);
  EXPECT_EQ(layout.runs.size(), 1U);
}
