#include "reading/dxf/dxf_rewriting.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "reading/dxf/dxf_encoding.hpp"
#include "reading/dxf/dxf_placement.hpp"

namespace {

constexpr int kNameCode = 2;
constexpr int kHandleCode = 5;
constexpr int kLayerCode = 8;
constexpr int kSubclassCode = 100;
constexpr int kDimStyleHandleCode = 105;
constexpr int kOwnerCode = 330;

constexpr std::string_view kFirstReleaseWithSubclasses = "AC1015";
constexpr std::string_view kFirstUtf8Release = "AC1021";
constexpr std::string_view kR12 = "AC1009";

// A record with its pairs.
struct WholeRecord {
  DxfRecord facts;
  std::vector<DxfPair> pairs;  // without comments
  std::vector<DxfRecord::Meaning> meanings;
  std::size_t end = 0;
  std::size_t firstItem = 0;  // of its list; 0: none
  bool hasComments = false;

  void Begin(const DxfPair& pair) {
    facts = DxfRecord::Begin(pair);
    pairs.assign(1, pair);
    meanings.assign(1, DxfRecord::Meaning::kOther);
    firstItem = 0;
    hasComments = false;
  }

  void Add(const DxfPair& pair) {
    if (pair.code == kDxfComment) {
      hasComments = true;
      return;
    }
    if (firstItem == 0 && pair.code != 0 && pair.code == facts.list().item) {
      firstItem = pairs.size();
    }
    pairs.push_back(pair);
    meanings.push_back(facts.Note(pair));
  }
};

// What a record is written with.
struct RecordForm {
  std::uint64_t handle = 0;
  std::optional<std::uint64_t> owner{};
  std::optional<std::string_view> layer{};
  std::string_view flags{};  // group 70, when the record has none
  std::string_view title{};  // another group 2
};

class Rewriter {
 public:
  Rewriter(std::string_view text, const DxfSurvey& survey)
      : text_(text),
        survey_(survey),
        isOld_(survey.IsOld()),
        handles_(survey.handles, survey.largestHandle),
        blockRecords_(survey.blocks.size()) {
    for (std::size_t i = 0; i < survey.blocks.size(); ++i) {
      blockAt_.emplace(survey.blocks[i].begin, i);
      hasRecords_ = hasRecords_ || survey.blocks[i].hasRecord;
    }
  }

  RewrittenDxf Run() {
    constexpr std::size_t kUsualGrowth = 4;
    out_.text.reserve(text_.size() + text_.size() / kUsualGrowth);
    ReportParts();
    WriteHeader();
    WriteSection(DxfSection::kClasses, [this](WholeRecord& record) { WriteClass(record); });
    WriteTables();
    WriteBlocks();
    WriteEntities();
    WriteSection(DxfSection::kObjects, [this](WholeRecord& record) { WriteObject(record); });
    CopySection(DxfSection::kThumbnail);
    CopySection(DxfSection::kData);
    WritePair(0, "EOF");
    Pad();
    return std::move(out_);
  }

 private:
  // Output.

  void WritePair(int code, std::string_view value) {
    constexpr std::size_t kWidth = 3;
    constexpr std::size_t kMostDigits = 12;
    std::array<char, kMostDigits> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), code);
    const auto count = static_cast<std::size_t>(result.ptr - digits.data());
    out_.text.append(kWidth - std::min(kWidth, count), ' ');
    out_.text.append(digits.data(), count);
    out_.text += '\n';
    out_.text += value;
    out_.text += '\n';
  }

  void WriteHandle(int code, std::uint64_t handle) { WritePair(code, DxfHandleText(handle)); }

  void CopyBytes(std::size_t begin, std::size_t end) {
    out_.text += text_.substr(begin, end - begin);
  }

  void BeginSection(DxfSection section) {
    WritePair(0, "SECTION");
    WritePair(kNameCode, DxfSectionName(section));
  }

  void EndSection() { WritePair(0, "ENDSEC"); }

  void NoteOrigin(std::size_t read) { out_.origins.push_back({out_.text.size(), read}); }

  void Report(DxfRepair kind, std::size_t at) { out_.repairs.Add(kind, at); }

  // LibreDWG refuses less than 256 bytes.
  void Pad() {
    constexpr std::size_t kLeastSize = 300;
    if (out_.text.size() < kLeastSize) {
      const std::string comment = "999\n" + std::string(kLeastSize - out_.text.size(), '-') + '\n';
      out_.text.insert(0, comment);
      for (DxfOrigin& origin : out_.origins) {
        origin.written += comment.size();
      }
    }
  }

  // Input.

  bool Has(DxfSection section) const {
    return std::any_of(survey_.parts.begin(), survey_.parts.end(),
                       [=](const DxfPart& part) { return part.section == section; });
  }

  template <typename Take>
  void ForEachRecord(DxfSection section, Take&& take) {
    WholeRecord record;
    for (const DxfPart& part : survey_.parts) {
      if (part.section == section) {
        ForEachRecord(part, record, take);
      }
    }
  }

  template <typename Take>
  void ForEachRecord(const DxfPart& part, WholeRecord& record, Take&& take) {
    DxfPairReader pairs(text_, part.begin, part.end);
    bool isOpen = false;
    DxfPair pair;
    while (pairs.Next(pair) == DxfStep::kPair) {
      if (pair.code == 0) {
        if (isOpen) {
          record.end = pair.begin;
          take(record);
        }
        record.Begin(pair);
        isOpen = true;
      } else if (isOpen) {
        record.Add(pair);
      }
    }
    if (isOpen) {
      record.end = part.end;
      take(record);
    }
  }

  template <typename Take>
  void WriteSection(DxfSection section, Take&& take) {
    if (!Has(section)) {
      return;
    }
    BeginSection(section);
    ForEachRecord(section, take);
    EndSection();
  }

  // Of these not all have records.
  void CopySection(DxfSection section) {
    if (!Has(section)) {
      return;
    }
    BeginSection(section);
    for (const DxfPart& part : survey_.parts) {
      if (part.section == section) {
        NoteOrigin(part.begin);
        CopyBytes(part.begin, part.end);
      }
    }
    EndSection();
  }

  // What is wrong with the sections.

  void ReportParts() {
    std::array<bool, kDxfSectionCount> seen{};
    DxfSection last = DxfSection::kHeader;
    for (const DxfPart& part : survey_.parts) {
      if (part.section == DxfSection::kUnknown) {
        Report(DxfRepair::kUnknownSections, part.begin);
        continue;
      }
      if (!part.hasBegin || !part.hasName) {
        Report(DxfRepair::kSectionBegins, part.begin);
      }
      if (!part.hasEnd) {
        Report(DxfRepair::kSectionEnds, part.end);
      }
      bool& isSeen = seen.at(static_cast<std::size_t>(part.section));
      if (isSeen) {
        Report(DxfRepair::kRepeatedSections, part.begin);
      } else if (part.section < last) {
        Report(DxfRepair::kSectionOrder, part.begin);
      }
      isSeen = true;
      last = std::max(last, part.section);
    }
    if (!survey_.hasEnd) {
      Report(DxfRepair::kFileEnd, text_.size());
    }
  }

  // HEADER and CLASSES.

  // The release that the file is read as.
  std::string_view Release() {
    const std::string_view known = KnownDxfRelease(survey_.release);
    if (!known.empty()) {
      return known;
    }
    if (!survey_.release.empty()) {
      Report(DxfRepair::kRelease, survey_.releaseAt);
    }
    if (IsUtf8BeyondAscii(text_)) {
      return kFirstUtf8Release;
    }
    return survey_.hasSubclasses ? kFirstReleaseWithSubclasses : kR12;
  }

  void WriteHeader() {
    const std::string_view release = Release();
    BeginSection(DxfSection::kHeader);
    out_.isReleaseMadeUp = survey_.release.empty();
    if (out_.isReleaseMadeUp) {
      WritePair(9, "$ACADVER");
      WritePair(1, release);
    }
    for (const DxfPart& part : survey_.parts) {
      if (part.section == DxfSection::kHeader) {
        CopyVariables(part, release);
      }
    }
    EndSection();
  }

  void CopyVariables(const DxfPart& part, std::string_view release) {
    constexpr int kVariable = 9;
    DxfPairReader pairs(text_, part.begin, part.end);
    DxfPair pair;
    // The offset of a variable's name while its value is to come.
    std::optional<std::size_t> variable;
    bool hasVariable = false;
    while (pairs.Next(pair) == DxfStep::kPair) {
      if (pair.code == kVariable) {
        ReportVariable(variable);
        variable = pair.begin;
        hasVariable = true;
      } else if (hasVariable && pair.code != kDxfComment) {
        CopyVariable(std::exchange(variable, std::nullopt), pair, pairs.offset(), release);
      }
    }
    ReportVariable(variable);
  }

  void ReportVariable(std::optional<std::size_t> variable) {
    if (variable) {
      Report(DxfRepair::kMissingValues, *variable);
    }
  }

  // The name before the first of its values.
  void CopyVariable(std::optional<std::size_t> name, const DxfPair& pair, std::size_t end,
                    std::string_view release) {
    if (pair.begin == survey_.releaseAt) {
      WritePair(9, "$ACADVER");
      WritePair(1, release);
    } else {
      CopyBytes(name.value_or(pair.begin), end);
    }
  }

  void WriteClass(const WholeRecord& record) {
    if (record.facts.name != "CLASS") {
      Report(DxfRepair::kUnknownRecords, record.facts.begin);
      return;
    }
    WriteRecord(record, {.handle = record.facts.handle});
  }

  // Any record.

  // One that neither the file nor a new record has.
  std::uint64_t NewHandle() {
    std::uint64_t handle = handles_.Take();
    while (!seen_.Insert(handle)) {
      handle = handles_.Take();
    }
    return handle;
  }

  // The handle that a record is written with, a new one if it has none of its
  // own.
  std::uint64_t HandleFor(const DxfRecord& record) {
    if (record.handle == 0) {
      if (!isOld_) {
        Report(DxfRepair::kMissingHandles, record.begin);
      }
      return NewHandle();
    }
    if (!seen_.Insert(record.handle)) {
      Report(DxfRepair::kRepeatedHandles, record.begin);
      return NewHandle();
    }
    return record.handle;
  }

  // The table's spelling of the record's layer, when that is another.
  std::optional<std::string_view> LayerFor(const DxfRecord& record) {
    if (!record.hasLayer || record.layer == lastLayer_) {
      return record.hasLayer ? lastSpelling_ : std::nullopt;
    }
    lastLayer_ = record.layer;
    const auto at = survey_.layerByKey.find(DxfNameKey(record.layer));
    const std::string_view name =
        at == survey_.layerByKey.end() ? record.layer : survey_.layers[at->second].name;
    lastSpelling_ = name == record.layer ? std::nullopt : std::optional(name);
    return lastSpelling_;
  }

  void WriteRecord(const WholeRecord& record, const RecordForm& form) {
    NoteOrigin(record.facts.begin);
    const DxfRecord& facts = record.facts;
    const bool isSame = facts.handle == form.handle &&
                        (!form.owner || (facts.hasOwner && facts.owner == *form.owner)) &&
                        !form.layer && !record.hasComments && !facts.hasMisplacedProperty &&
                        !facts.hasUnknownSubclass && !facts.hasSecondName &&
                        !facts.hasForeignHandle && !facts.LacksGroups() &&
                        facts.WrongCounts() == 0 && form.flags.empty() && form.title.empty() &&
                        !LacksSubclasses(facts) && !LacksEntityMarker(facts);
    if (isSame) {
      CopyBytes(facts.begin, record.end);
    } else {
      WriteNewForm(record, form);
    }
  }

  void WriteNewForm(const WholeRecord& record, const RecordForm& form) {
    const DxfRecord& facts = record.facts;
    WritePair(0, facts.name);
    if (form.handle != 0) {
      WriteHandle(facts.name == "DIMSTYLE" ? kDimStyleHandleCode : kHandleCode, form.handle);
    }
    if (form.owner) {
      WriteHandle(kOwnerCode, *form.owner);
    }
    if (facts.hasUnknownSubclass || LacksSubclasses(facts) || LacksEntityMarker(facts)) {
      Report(DxfRepair::kSubclasses, facts.begin);
    }
    if (LacksSubclasses(facts)) {
      WriteWithSubclasses(record, form);
      return;
    }
    for (std::size_t i = 0; i < facts.WrongCounts(); ++i) {
      Report(DxfRepair::kCounts, facts.begin);
    }
    bool hasMoved = !facts.hasMisplacedProperty;
    if (LacksEntityMarker(facts)) {
      WritePair(kSubclassCode, "AcDbEntity");
      WriteMoved(record, form);
      hasMoved = true;
    }
    const std::size_t lastMarker = LastMarker(record);
    if (lastMarker == 0) {
      WriteMissingGroups(record, form);
    }
    if (facts.hasSecondName) {
      WritePair(kNameCode, facts.title);
    }
    if (!form.title.empty()) {
      Report(DxfRepair::kMissingGroups, facts.begin);
      WritePair(kNameCode, form.title);
    }
    for (std::size_t i = 1; i < record.pairs.size(); ++i) {
      const DxfPair& pair = record.pairs[i];
      const bool isOldTitle = pair.code == kNameCode && !form.title.empty();
      if (isOldTitle || !IsWritten(record.meanings[i], form)) {
        continue;
      }
      WriteOwnPair(record, i, form);
      if (i == lastMarker) {
        WriteMissingGroups(record, form);
      }
      if (!hasMoved && pair.code == kSubclassCode) {
        WriteMoved(record, form);
        hasMoved = true;
      }
    }
  }

  void WriteOwnPair(const WholeRecord& record, std::size_t i, const RecordForm& form) {
    const DxfRecord& facts = record.facts;
    const int code = record.pairs[i].code;
    const DxfListCodes list = facts.list();
    if (facts.HasWrongListCount() && code == list.count) {
      WritePair(code, std::to_string(facts.itemCount));
      return;
    }
    if (facts.HasWrongListCount() && !facts.hasCount && i == record.firstItem) {
      WritePair(list.count, std::to_string(facts.itemCount));
    }
    const bool isLayer = record.meanings[i] == DxfRecord::Meaning::kLayer && form.layer;
    WritePair(code, isLayer ? *form.layer : record.pairs[i].value);
  }

  // The marker behind which the groups of the record's own type stand; 0: none.
  static std::size_t LastMarker(const WholeRecord& record) {
    constexpr int kEmbeddedObject = 101;
    std::size_t last = 0;
    for (std::size_t i = 1; i < record.pairs.size() && record.pairs[i].code != kEmbeddedObject;
         ++i) {
      if (record.pairs[i].code == kSubclassCode &&
          record.meanings[i] != DxfRecord::Meaning::kUnknownSubclass) {
        last = i;
      }
    }
    return last;
  }

  void WriteMissingGroups(const WholeRecord& record, const RecordForm& form) {
    if (!form.flags.empty()) {
      constexpr int kFlags = 70;
      Report(DxfRepair::kMissingGroups, record.facts.begin);
      WritePair(kFlags, form.flags);
    }
    if (!record.facts.LacksGroups()) {
      return;
    }
    for (const DxfRequiredGroup& group : DxfRequiredGroups(record.facts.name)) {
      if (Find(record, group.code) != nullptr) {
        continue;
      }
      Report(DxfRepair::kMissingGroups, record.facts.begin);
      if (group.value.empty()) {
        WriteThirdCornerAgain(record);
      } else {
        WritePair(group.code, group.value);
      }
    }
  }

  static const DxfPair* Find(const WholeRecord& record, int code) {
    const auto at = std::find_if(record.pairs.begin() + 1, record.pairs.end(),
                                 [code](const DxfPair& pair) { return pair.code == code; });
    return at == record.pairs.end() ? nullptr : &*at;
  }

  void WriteThirdCornerAgain(const WholeRecord& record) {
    constexpr int kThird = 12;
    constexpr int kNextAxis = 10;
    for (int code = kThird; code < kThird + 3 * kNextAxis; code += kNextAxis) {
      const DxfPair* const third = Find(record, code);
      WritePair(code + 1, third == nullptr ? "0.0" : third->value);
    }
  }

  bool WantsSubclasses() const {
    return !isOld_ || (survey_.hasSubclasses && KnownDxfRelease(survey_.release).empty());
  }

  bool LacksSubclasses(const DxfRecord& facts) const {
    return WantsSubclasses() && LacksDxfSubclasses(facts);
  }

  bool LacksEntityMarker(const DxfRecord& facts) const {
    return WantsSubclasses() && LacksDxfEntityMarker(facts);
  }

  // The common part first, whatever the order in the file.
  void WriteWithSubclasses(const WholeRecord& record, const RecordForm& form) {
    WritePair(kSubclassCode, "AcDbEntity");
    WritePart(record, form, IsCommonDxfCode);
    const auto isOwn = [](int code) { return !IsCommonDxfCode(code); };
    if (record.facts.name == "DIMENSION") {
      WriteDimensionParts(record, form);
    } else {
      const bool isArray = record.facts.name == "INSERT" && record.facts.isArray;
      const std::string_view subclass =
          isArray ? "AcDbMInsertBlock" : DxfSubclassOfType(record.facts.name);
      if (!subclass.empty()) {
        WritePair(kSubclassCode, subclass);
      }
      WriteMissingGroups(record, form);
      WritePart(record, form, isOwn);
    }
  }

  // The groups of some codes.
  template <typename IsPart>
  void WritePart(const WholeRecord& record, const RecordForm& form, IsPart&& isPart) {
    for (std::size_t i = 1; i < record.pairs.size(); ++i) {
      const int code = record.pairs[i].code;
      if (code != kSubclassCode && isPart(code) && IsWritten(record.meanings[i], form)) {
        WriteOwnPair(record, i, form);
      }
    }
  }

  // What all kinds of dimensions have, and what one has by group 70.
  void WriteDimensionParts(const WholeRecord& record, const RecordForm& form) {
    constexpr int kFirstExtended = 1000;
    const auto isShared = [](int code) {
      return !IsCommonDxfCode(code) && code < kFirstExtended && IsSharedDxfDimensionCode(code);
    };
    const auto isOfKind = [](int code) {
      return !IsCommonDxfCode(code) && code < kFirstExtended && !IsSharedDxfDimensionCode(code);
    };
    WritePair(kSubclassCode, "AcDbDimension");
    WritePart(record, form, isShared);
    const DxfDimensionSubclasses subclasses = DxfSubclassesOfDimension(KindOfDimension(record));
    if (!subclasses.before.empty()) {
      WritePair(kSubclassCode, subclasses.before);
    }
    WritePart(record, form, isOfKind);
    if (!subclasses.behind.empty()) {
      WritePair(kSubclassCode, subclasses.behind);
    }
    WritePart(record, form, [](int code) { return code >= kFirstExtended; });
  }

  // A rotated one when the record does not say.
  static int KindOfDimension(const WholeRecord& record) {
    constexpr int kFlags = 70;
    constexpr int kKindMask = 7;
    for (const DxfPair& pair : record.pairs) {
      if (pair.code == kFlags) {
        const auto flags = ParseDxfCode(pair.value);
        return flags && *flags >= 0 ? *flags & kKindMask : 0;
      }
    }
    return 0;
  }

  static bool IsWritten(DxfRecord::Meaning meaning, const RecordForm& form) {
    switch (meaning) {
      case DxfRecord::Meaning::kHandle: return form.handle == 0;
      case DxfRecord::Meaning::kOwner: return !form.owner;
      case DxfRecord::Meaning::kMisplacedProperty:
      case DxfRecord::Meaning::kForeignHandle:
      case DxfRecord::Meaning::kUnknownSubclass: return false;
      default: return true;
    }
  }

  void WriteMoved(const WholeRecord& record, const RecordForm& form) {
    for (std::size_t i = 1; i < record.pairs.size(); ++i) {
      if (record.meanings[i] == DxfRecord::Meaning::kMisplacedProperty) {
        const bool isLayer = record.pairs[i].code == kLayerCode && form.layer;
        WritePair(record.pairs[i].code, isLayer ? *form.layer : record.pairs[i].value);
        Report(DxfRepair::kMisplacedProperties, record.pairs[i].begin);
      }
    }
  }

  void WriteObject(const WholeRecord& record) {
    const DxfRecord& facts = record.facts;
    const bool isRepeated = facts.handle != 0 && !seen_.Insert(facts.handle);
    if (isRepeated) {
      Report(DxfRepair::kRepeatedHandles, facts.begin);
    }
    WriteRecord(record, {.handle = isRepeated ? NewHandle() : facts.handle});
  }

  // TABLES.

  struct Table {
    std::string_view name;
    bool hasHead = false;
  };

  // The tables in the order in which they first occur.
  std::vector<Table> FindTables() {
    std::vector<Table> tables;
    std::string_view open;
    std::size_t end = 0;
    const auto of = [&tables](std::string_view name) -> Table& {
      const auto at = std::find_if(tables.begin(), tables.end(),
                                   [name](const Table& table) { return table.name == name; });
      return at != tables.end() ? *at : tables.emplace_back(Table{.name = name});
    };
    ForEachRecord(DxfSection::kTables, [&](const WholeRecord& record) {
      const DxfRecord& facts = record.facts;
      end = record.end;
      if (facts.name == "ENDTAB") {
        open = {};
      } else if (facts.name == "TABLE") {
        if (!open.empty()) {
          Report(DxfRepair::kTableEnds, facts.begin);
        }
        open = facts.title;
        NoteTableHead(facts, of);
      } else if (IsDxfTable(facts.name)) {
        if (open != facts.name) {
          Report(DxfRepair::kTableBegins, facts.begin);
          open = facts.name;
        }
        of(facts.name);
      } else {
        Report(DxfRepair::kUnknownRecords, facts.begin);
      }
    });
    if (!open.empty()) {
      Report(DxfRepair::kTableEnds, end);
    }
    return tables;
  }

  template <typename TableOf>
  void NoteTableHead(const DxfRecord& facts, TableOf&& of) {
    if (!IsDxfTable(facts.title)) {
      Report(DxfRepair::kUnknownRecords, facts.begin);
      return;
    }
    Table& table = of(facts.title);
    if (table.hasHead) {
      Report(DxfRepair::kRepeatedSections, facts.begin);
    }
    table.hasHead = true;
  }

  bool LacksLayers() const {
    return std::any_of(survey_.layers.begin(), survey_.layers.end(), IsWantedLayer);
  }

  static bool IsWantedLayer(const DxfLayerName& layer) {
    return !layer.isInTable && DxfNameKey(layer.name) != "0";
  }

  void WriteTables() {
    std::vector<Table> tables = FindTables();
    const auto want = [&tables](std::string_view name) {
      if (std::none_of(tables.begin(), tables.end(),
                       [name](const Table& table) { return table.name == name; })) {
        tables.push_back({.name = name});
      }
    };
    if (LacksLayers()) {
      want("LAYER");
    }
    want("BLOCK_RECORD");
    BeginSection(DxfSection::kTables);
    for (const Table& table : tables) {
      WriteTable(table);
    }
    EndSection();
  }

  void WriteTable(const Table& table) {
    std::uint64_t tableHandle = 0;
    if (!table.hasHead) {
      tableHandle = NewHandle();
      WritePair(0, "TABLE");
      WritePair(kNameCode, table.name);
      WriteHandle(kHandleCode, tableHandle);
    }
    bool hasHead = !table.hasHead;
    if (table.hasHead) {
      ForEachRecord(DxfSection::kTables, [&](const WholeRecord& record) {
        if (!hasHead && record.facts.name == "TABLE" && record.facts.title == table.name) {
          hasHead = true;
          tableHandle = WriteTableHead(record);
        }
      });
    }
    ForEachRecord(DxfSection::kTables, [&](const WholeRecord& record) {
      if (record.facts.name == table.name) {
        WriteTableRecord(record);
      }
    });
    if (table.name == "LAYER") {
      WriteMissingLayers(tableHandle);
    } else if (table.name == "BLOCK_RECORD") {
      WriteMissingBlockRecords(tableHandle);
    }
    WritePair(0, "ENDTAB");
  }

  std::uint64_t WriteTableHead(const WholeRecord& record) {
    const DxfRecord& facts = record.facts;
    const bool isFree = facts.handle != 0 && seen_.Insert(facts.handle);
    const std::uint64_t handle = isFree ? facts.handle : NewHandle();
    NoteOrigin(facts.begin);
    // The reader takes the name for the first thing that follows.
    WritePair(0, "TABLE");
    WritePair(kNameCode, facts.title);
    WriteHandle(kHandleCode, handle);
    bool hasName = false;
    for (std::size_t i = 1; i < record.pairs.size(); ++i) {
      const DxfPair& pair = record.pairs[i];
      if (pair.code == kNameCode && !hasName) {
        hasName = true;
      } else if (record.meanings[i] != DxfRecord::Meaning::kHandle) {
        WritePair(pair.code, pair.value);
      }
    }
    return handle;
  }

  void WriteTableRecord(const WholeRecord& record) {
    if (IsRepeated(record.facts)) {
      Report(DxfRepair::kRepeatedRecords, record.facts.begin);
      return;
    }
    const auto at = blockAt_.find(record.facts.begin);
    if (record.facts.name != "BLOCK_RECORD" || at == blockAt_.end()) {
      WriteRecord(record, {.handle = HandleFor(record.facts)});
      return;
    }
    const std::uint64_t handle = HandleForBlock(record.facts, at->second);
    blockRecords_[at->second] = handle;
    const DxfBlockName& block = survey_.blocks[at->second];
    WriteRecord(record,
                {.handle = handle, .title = block.isRenamed ? block.name : std::string_view{}});
  }

  // Whether a layer or block record of that name and handle stands there already.
  bool IsRepeated(const DxfRecord& facts) {
    if (facts.title.empty() || (facts.name != "LAYER" && facts.name != "BLOCK_RECORD")) {
      return false;
    }
    std::string key(facts.name);
    key += '/';
    key += DxfHandleText(facts.handle);
    key += '/';
    key += DxfNameKey(facts.title);
    return !entries_.insert(std::move(key)).second;
  }

  // The handle that its BLOCK calls it by, when it has none of its own.
  std::uint64_t HandleForBlock(const DxfRecord& facts, std::size_t index) {
    const std::uint64_t owner = survey_.blocks[index].owner;
    if (facts.handle != 0 || !IsFree(owner)) {
      return HandleFor(facts);
    }
    Report(DxfRepair::kMissingHandles, facts.begin);
    return owner;
  }

  // Takes a handle if no record of the file has it.
  bool IsFree(std::uint64_t handle) {
    return handle != 0 && !survey_.handles.Contains(handle) && seen_.Insert(handle);
  }

  void WriteMissingLayers(std::uint64_t tableHandle) {
    const bool isLacking = LacksLayers();
    for (const DxfLayerName& layer : survey_.layers) {
      if (layer.isInTable || !isLacking) {
        continue;
      }
      if (survey_.hasLayerTable && IsWantedLayer(layer)) {
        Report(DxfRepair::kLayers, layer.begin);
      }
      NoteOrigin(layer.begin);
      WritePair(0, "LAYER");
      WriteHandle(kHandleCode, NewHandle());
      WriteHandle(kOwnerCode, tableHandle);
      WritePair(kSubclassCode, "AcDbSymbolTableRecord");
      WritePair(kSubclassCode, "AcDbLayerTableRecord");
      WritePair(kNameCode, TrimmedDxfEnd(layer.name));
      WritePair(70, "0");
      WritePair(62, "7");
      WritePair(6, "CONTINUOUS");
      WritePair(370, "-3");  // the default lineweight
    }
  }

  void WriteBlockRecord(std::string_view name, std::uint64_t handle, std::uint64_t tableHandle) {
    WritePair(0, "BLOCK_RECORD");
    WriteHandle(kHandleCode, handle);
    WriteHandle(kOwnerCode, tableHandle);
    WritePair(kSubclassCode, "AcDbSymbolTableRecord");
    WritePair(kSubclassCode, "AcDbBlockTableRecord");
    WritePair(kNameCode, name);
  }

  void WriteMissingBlockRecords(std::uint64_t tableHandle) {
    modelSpace_ = RecordOf(survey_.FindModelSpace(), "*Model_Space", tableHandle);
    if (survey_.usesPaperSpace || survey_.FindPaperSpace() != nullptr) {
      paperSpace_ = RecordOf(survey_.FindPaperSpace(), "*Paper_Space", tableHandle);
    }
    for (std::size_t i = 0; i < blockRecords_.size(); ++i) {
      if (blockRecords_[i] == 0) {
        WriteMissingBlockRecord(i, tableHandle);
      }
    }
  }

  std::uint64_t WriteMissingBlockRecord(std::size_t index, std::uint64_t tableHandle) {
    const DxfBlockName& block = survey_.blocks[index];
    if (!isOld_) {
      Report(DxfRepair::kMissingBlockRecords, block.begin);
    }
    blockRecords_[index] = IsFree(block.owner) ? block.owner : NewHandle();
    NoteOrigin(block.begin);
    WriteBlockRecord(block.name, blockRecords_[index], tableHandle);
    return blockRecords_[index];
  }

  // The record of a space, written now if there is none.
  std::uint64_t RecordOf(const DxfBlockName* block, std::string_view name,
                         std::uint64_t tableHandle) {
    if (block == nullptr) {
      const std::uint64_t handle = NewHandle();
      WriteBlockRecord(name, handle, tableHandle);
      return handle;
    }
    const auto index = static_cast<std::size_t>(block - survey_.blocks.data());
    return blockRecords_[index] != 0 ? blockRecords_[index]
                                     : WriteMissingBlockRecord(index, tableHandle);
  }

  // BLOCKS and ENTITIES.

  // The record of the block that a BLOCK begins.
  std::uint64_t RecordOfBlock(const DxfRecord& begin) const {
    const DxfBlockName* named = survey_.FindBlock(begin.title);
    const auto byRecord = survey_.blockByRecord.find(begin.owner);
    if (byRecord != survey_.blockByRecord.end() &&
        (named == nullptr ||
         DxfNameKey(survey_.blocks[byRecord->second].name) == DxfNameKey(begin.title))) {
      return blockRecords_[byRecord->second];
    }
    return named == nullptr
               ? modelSpace_
               : blockRecords_[static_cast<std::size_t>(named - survey_.blocks.data())];
  }

  std::uint64_t SpaceOf(const DxfRecord& entity) const {
    if (const DxfBlockName* space = survey_.FindSpace(entity.owner)) {
      return blockRecords_[static_cast<std::size_t>(space - survey_.blocks.data())];
    }
    return entity.isInPaper && paperSpace_ != 0 ? paperSpace_ : modelSpace_;
  }

  void WriteBlocks() {
    if (!Has(DxfSection::kBlocks)) {
      return;
    }
    WriteEntitySection(DxfSection::kBlocks);
  }

  void WriteEntities() { WriteEntitySection(DxfSection::kEntities); }

  void WriteEntitySection(DxfSection section) {
    BeginSection(section);
    DxfPlacement placement(section == DxfSection::kBlocks);
    std::size_t end = 0;
    ForEachRecord(section, [&](const WholeRecord& record) {
      const DxfPlaced placed = placement.Next(record.facts);
      WriteMissingEnds(placed, record.facts.begin);
      WritePlaced(record, placed.place, section);
      end = record.end;
    });
    WriteMissingEnds(placement.Finish(), end);
    EndSection();
  }

  void WriteMissingEnds(const DxfPlaced& placed, std::size_t at) {
    if (placed.lacksSequenceEnd) {
      Report(DxfRepair::kSequenceEnds, at);
      WriteEnd("SEQEND", parent_, at);
    }
    if (placed.lacksBlockEnd) {
      Report(DxfRepair::kBlockEnds, at);
      WriteEnd("ENDBLK", block_, at);
    }
  }

  void WriteEnd(std::string_view name, std::uint64_t owner, std::size_t at) {
    NoteOrigin(at);
    WritePair(0, name);
    WriteHandle(kHandleCode, NewHandle());
    WriteHandle(kOwnerCode, owner);
    WritePair(kLayerCode, "0");
  }

  void WritePlaced(const WholeRecord& record, DxfPlace place, DxfSection section) {
    const DxfRecord& facts = record.facts;
    switch (place) {
      case DxfPlace::kBlockBegin:
        block_ = RecordOfBlock(facts);
        WriteEntity(record, block_);
        break;
      case DxfPlace::kBlockEnd: WriteEntity(record, block_); break;
      case DxfPlace::kEntity:
        parentOwner_ = section == DxfSection::kBlocks ? block_ : SpaceOf(facts);
        parent_ = WriteEntity(record, parentOwner_);
        parentWas_ = facts.handle;
        isParentOf3d_ = IsOf3d(record);
        break;
      case DxfPlace::kSubentity: WriteSubentity(record); break;
      case DxfPlace::kOrphan: Report(DxfRepair::kOrphans, facts.begin); break;
      case DxfPlace::kOutside: Report(DxfRepair::kUnknownRecords, facts.begin); break;
    }
  }

  void WriteSubentity(const WholeRecord& record) {
    // Some programs name the space instead of what the vertex belongs to; the
    // reader finds that itself.
    const std::uint64_t owner = record.facts.owner;
    const bool mayStay =
        owner != 0 && parent_ == parentWas_ && (owner == parentWas_ || owner == parentOwner_);
    if (!mayStay && owner != 0 && owner != parentWas_ && record.facts.name == "ATTRIB") {
      Report(DxfRepair::kOwners, record.facts.begin);
    }
    WriteRecord(record, {.handle = HandleFor(record.facts),
                         .owner = mayStay ? owner : parent_,
                         .layer = LayerFor(record.facts),
                         .flags = MissingFlags(record)});
  }

  // Those of a vertex that only they and its markers tell from one of two dimensions.
  std::string_view MissingFlags(const WholeRecord& record) const {
    constexpr int kFlags = 70;
    const bool isLacking = isParentOf3d_ && record.facts.name == "VERTEX" &&
                           record.facts.subclassCount == 0 && Find(record, kFlags) == nullptr;
    return isLacking ? "32" : std::string_view{};
  }

  static bool IsOf3d(const WholeRecord& record) {
    constexpr int kFlags = 70;
    constexpr int kOf3d = 8;
    const DxfPair* const flags = record.facts.name == "POLYLINE" ? Find(record, kFlags) : nullptr;
    return flags != nullptr && (ParseDxfCode(flags->value).value_or(0) & kOf3d) != 0;
  }

  std::uint64_t WriteEntity(const WholeRecord& record, std::uint64_t owner) {
    const DxfRecord& facts = record.facts;
    // Many programs write none where there is no doubt, and parts of drawings
    // have owners that stand in no table.
    if (hasRecords_ && facts.owner != 0 && facts.owner != owner &&
        !IsRenumbered(facts.owner, owner)) {
      Report(DxfRepair::kOwners, facts.begin);
    }
    const std::uint64_t handle = HandleFor(facts);
    WriteRecord(record, {.handle = handle, .owner = owner, .layer = LayerFor(facts)});
    return handle;
  }

  // Whether both name the same block record, which has a new handle.
  bool IsRenumbered(std::uint64_t was, std::uint64_t is) const {
    const auto at = survey_.blockByRecord.find(was);
    return at != survey_.blockByRecord.end() && blockRecords_[at->second] == is;
  }

  std::string_view text_;
  const DxfSurvey& survey_;
  bool isOld_;
  bool hasRecords_ = false;  // of blocks, in the file
  FreeDxfHandles handles_;
  DxfHandleSet seen_;
  std::unordered_set<std::string> entries_;               // of the tables
  std::vector<std::uint64_t> blockRecords_;               // by the survey's order of blocks
  std::unordered_map<std::size_t, std::size_t> blockAt_;  // by offset
  std::uint64_t modelSpace_ = 0;
  std::uint64_t paperSpace_ = 0;
  std::uint64_t block_ = 0;      // the record of the block that is open
  std::uint64_t parent_ = 0;     // of the sequence that is open
  std::uint64_t parentWas_ = 0;  // its handle in the file
  std::uint64_t parentOwner_ = 0;
  bool isParentOf3d_ = false;  // a polyline
  std::string_view lastLayer_;
  std::optional<std::string_view> lastSpelling_;
  RewrittenDxf out_;
};

}  // namespace

RewrittenDxf RewriteDxf(std::string_view text, const DxfSurvey& survey) {
  return Rewriter(text, survey).Run();
}
