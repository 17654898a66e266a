// The release that a drawing's file names itself, found without reading the
// drawing: "AC1032" for example. Empty when there is none that LibreDWG knows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// A DWG begins with it. So many bytes of one suffice.
inline constexpr std::size_t kStoredReleaseBytes = 7;
std::string StoredReleaseOfDwg(std::string_view beginning);

// A DXF, text or binary, has it as a variable of its header.
std::string StoredReleaseOfDxf(std::string_view bytes);
