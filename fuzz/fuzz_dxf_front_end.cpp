// Any bytes through what makes a DXF readable, without LibreDWG: what comes out
// is text that its reader takes as it stands.

#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/check.hpp"
#include "reading/dxf/dxf_front_end.hpp"
#include "reading/dxf/dxf_survey.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string bytes(reinterpret_cast<const char*>(data), size);
  if (bytes.empty() || bytes.back() != '\n') {
    bytes += '\n';
  }
  const TimeBudget budget;
  const PreparedDxf prepared(bytes);
  budget.Check();
  FUZZ_CHECK(prepared.LineAt(0) >= 1);
  FUZZ_CHECK(prepared.LineAt(prepared.text().size()) >= 1);
  if (prepared.outcome() == PreparedDxf::Outcome::kRewritten) {
    FUZZ_CHECK(prepared.text().ends_with('\n'));
    FUZZ_CHECK(SurveyDxf(prepared.text()).isProper);
    // A constant factor more at most.
    constexpr std::size_t kMostGrowth = 60;
    constexpr std::size_t kFrame = 4000;
    FUZZ_CHECK(prepared.text().size() <= kFrame + kMostGrowth * size);
    // Nothing of it is taken for something else.
    const PreparedDxf again(prepared.text());
    FUZZ_CHECK(again.outcome() == PreparedDxf::Outcome::kPassedOn ||
               again.outcome() == PreparedDxf::Outcome::kRewritten);
    FUZZ_CHECK(again.repairs().IsEmpty());
  }
  return 0;
}
