// A strict check that a text is one JSON value and nothing else.
//
// Bytes of 0x80 and above are accepted inside strings as they are, because the
// document copies broken UTF-8 of a drawing. Recursion-free, linear time.
#pragma once

#include <string_view>

// Whether `text` is grammatical. Objects must not repeat a key.
bool IsGrammaticalJson(std::string_view text);
