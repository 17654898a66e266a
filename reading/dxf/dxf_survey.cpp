#include "reading/dxf/dxf_survey.hpp"

#include <algorithm>
#include <array>
#include <optional>

#include "encode/ascii.hpp"
#include "reading/dxf/dxf_placement.hpp"

namespace {

constexpr std::array<std::string_view, 27> kReleases = {
    "MC0.0",  "AC1.2",  "AC1.3",  "AC1.40", "AC1.50", "AC2.10", "AC2.21", "AC2.22", "AC1001",
    "AC1002", "AC1003", "AC1004", "AC1005", "AC1006", "AC1007", "AC1008", "AC1009", "AC1010",
    "AC1011", "AC1012", "AC1013", "AC1014", "AC1015", "AC1016", "AC1017", "AC1018", "AC1021"};
constexpr std::array<std::string_view, 3> kLateReleases = {"AC1024", "AC1027", "AC1032"};

// Years between those that changed the format have numbers of their own.
struct BetweenReleases {
  std::string_view first;
  std::string_view last;
  std::string_view release;
};
constexpr std::array kBetween = {
    BetweenReleases{"AC1019", "AC1020", "AC1018"}, BetweenReleases{"AC1022", "AC1023", "AC1021"},
    BetweenReleases{"AC1025", "AC1026", "AC1024"}, BetweenReleases{"AC1028", "AC1031", "AC1027"},
    BetweenReleases{"AC1033", "AC1099", "AC1032"}};

constexpr std::string_view kReleaseVariable = "$ACADVER";
constexpr std::uint64_t kModelSpacePlaceholder = 0x1F;

// Beyond it a new handle would not fit into 32 bits.
constexpr std::uint64_t kRoomForMore = 0xF0000000;

class Surveyor {
 public:
  explicit Surveyor(std::string_view text) : text_(text), pairs_(text) {}

  DxfSurvey Run() {
    DxfPair pair;
    DxfStep step = pairs_.Next(pair);
    while (step == DxfStep::kPair) {
      Take(pair);
      if (survey_.hasEnd || hasFlaw_) {
        break;
      }
      step = pairs_.Next(pair);
    }
    if (step != DxfStep::kFlaw && !hasFlaw_) {
      Finish();
    }
    if (step == DxfStep::kFlaw || hasFlaw_) {
      survey_.isProper = false;
      survey_.flawAt = pair.begin;
    }
    return std::move(survey_);
  }

 private:
  DxfSection Open() const { return isOpen_ ? survey_.parts.back().section : DxfSection::kUnknown; }

  void Take(const DxfPair& pair) {
    if (pair.code == 0) {
      FinishRecord();
      BeginRecord(pair);
      return;
    }
    if (pair.code == kDxfComment) {
      // Before the first record the reader skips them.
      survey_.needsRewriting = survey_.needsRewriting || isOpen_;
      return;
    }
    if (!isOpen_) {
      TakeOutside(pair);
    } else if (Open() == DxfSection::kHeader) {
      TakeHeader(pair);
    } else if (isInRecord_) {
      TakeOfRecord(pair);
    } else if (Open() < DxfSection::kThumbnail) {
      // Before the first record of a section that has nothing but records.
      survey_.needsRewriting = true;
    }
  }

  void TakeOutside(const DxfPair& pair) {
    constexpr int kVariable = 9;
    survey_.needsRewriting = true;
    if (pair.code == kVariable) {
      Begin(DxfSection::kHeader, pair.begin);
      survey_.parts.back().hasBegin = false;
      TakeHeader(pair);
    }
  }

  void TakeHeader(const DxfPair& pair) {
    constexpr int kVariable = 9;
    survey_.parts.back().hasRecords = true;
    if (pair.code != kVariable) {
      // Before the first variable there is nothing that it could belong to.
      survey_.needsRewriting = survey_.needsRewriting || !hasVariables_;
      isVariableOpen_ = false;
    } else {
      survey_.needsRewriting = survey_.needsRewriting || isVariableOpen_;
      hasFlaw_ = hasFlaw_ || IsOddVariable(pair.value);
      hasVariables_ = true;
      isVariableOpen_ = true;
      isRelease_ = pair.value == kReleaseVariable;
    }
    if (isRelease_ && pair.code != kVariable && KindOfDxfCode(pair.code) == DxfValueKind::kText) {
      survey_.release = TrimmedDxf(pair.value);
      survey_.releaseAt = pair.begin;
      survey_.needsRewriting =
          survey_.needsRewriting || pair.code != 1 || KnownDxfRelease(pair.value) != pair.value;
      isRelease_ = false;
    }
  }

  // Blanks around it, or the first of the variables in lower case: then the
  // others are, too.
  static bool IsOddVariable(std::string_view name) {
    return TrimmedDxf(name).size() != name.size() ||
           (name != kReleaseVariable && UsualDxfVariable(name) == kReleaseVariable);
  }

  void TakeOfRecord(const DxfPair& pair) {
    constexpr int kHandleCode = 5;
    if (pair.code == kHandleCode && record_.name != "DIMSTYLE" &&
        !ParseDxfHandle(pair.value).has_value()) {
      hasFlaw_ = true;
    }
    record_.Note(pair);
  }

  // The name of the section that a SECTION opens, comments before it left out.
  std::optional<DxfPair> PeekName() const {
    DxfPairReader ahead = pairs_;
    DxfPair pair;
    DxfStep step = ahead.Next(pair);
    while (step == DxfStep::kPair && pair.code == kDxfComment) {
      step = ahead.Next(pair);
    }
    return step == DxfStep::kPair && pair.code == 2 ? std::optional(pair) : std::nullopt;
  }

  // Blanks around it, or a well-known name in lower case.
  static bool IsOddName(std::string_view name) {
    const bool isPlain = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
      return (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_';
    });
    return !isPlain && DxfRecordName(name) != name;
  }

  void BeginRecord(const DxfPair& pair) {
    const std::string_view name = pair.value;
    if (isOpen_ && !name.empty() && name == content_) {
      BeginContent(pair, contentSection_);
      return;
    }
    if (IsOddName(name)) {
      hasFlaw_ = true;
      return;
    }
    if (name == "SECTION" || (!isOpen_ && DxfSectionOfRecord(name) == DxfSection::kUnknown)) {
      const auto title = PeekName();
      if (title && (name == "SECTION" ||
                    DxfSectionOfName(TrimmedDxf(title->value)) != DxfSection::kUnknown)) {
        BeginSection(pair, *title);
        return;
      }
    }
    if (name == "SECTION" && BeginNamelessSection(pair)) {
      return;
    }
    if (name == "ENDSEC") {
      EndSection(pair.begin, true);
    } else if (name == "EOF") {
      EndSection(pair.begin, false);
      survey_.hasEnd = true;
      survey_.end = pairs_.offset();
    } else {
      // A SECTION without a name is content, too; the next one may have a name.
      content_ = name == "SECTION" ? std::string_view() : name;
      contentSection_ = DxfSectionOfRecord(name);
      BeginContent(pair, contentSection_);
    }
  }

  void BeginSection(const DxfPair& pair, const DxfPair& title) {
    EndSection(pair.begin, false);
    DxfPair name;
    while (pairs_.Next(name) == DxfStep::kPair && name.code == kDxfComment) {
      survey_.needsRewriting = true;
    }
    DxfSection section = DxfSectionOfName(title.value);
    const bool hasName = section != DxfSection::kUnknown;
    if (!hasName) {
      hasFlaw_ = hasFlaw_ || DxfSectionOfName(DxfRecordName(title.value)) != section;
      section = SectionOfContent();
    }
    Begin(section, pairs_.offset());
    survey_.parts.back().hasBegin = pair.value == "SECTION";
    survey_.parts.back().hasName = hasName;
    survey_.needsRewriting = survey_.needsRewriting || !hasName || pair.value != "SECTION";
  }

  // A SECTION without a name, when what it holds says which it is.
  bool BeginNamelessSection(const DxfPair& pair) {
    const DxfSection section = SectionOfContent();
    if (section == DxfSection::kUnknown) {
      return false;
    }
    EndSection(pair.begin, false);
    Begin(section, pairs_.offset());
    survey_.parts.back().hasName = false;
    survey_.needsRewriting = true;
    return true;
  }

  // What a section of an unknown name holds.
  DxfSection SectionOfContent() const {
    DxfPairReader ahead = pairs_;
    DxfPair pair;
    constexpr int kVariable = 9;
    if (ahead.Next(pair) != DxfStep::kPair) {
      return DxfSection::kUnknown;
    }
    const DxfSection section = pair.code == kVariable ? DxfSection::kHeader
                               : pair.code == 0       ? DxfSectionOfRecord(pair.value)
                                                      : DxfSection::kUnknown;
    // Where there is one of that name, this one is something else.
    return section == DxfSection::kUnknown || IsNamed(section) ? DxfSection::kUnknown : section;
  }

  bool IsNamed(DxfSection section) const {
    const std::string line = '\n' + std::string(DxfSectionName(section));
    return text_.find(line + '\n') != std::string_view::npos ||
           text_.find(line + "\r\n") != std::string_view::npos;
  }

  void Begin(DxfSection section, std::size_t begin) {
    survey_.parts.push_back({.section = section, .begin = begin, .end = begin});
    isOpen_ = true;
    isRelease_ = false;
    hasVariables_ = false;
    placement_ = DxfPlacement(section == DxfSection::kBlocks);
    table_ = {};
  }

  void EndSection(std::size_t end, bool hasEnd) {
    if (!isOpen_) {
      survey_.needsRewriting = survey_.needsRewriting || hasEnd;
      return;
    }
    DxfPart& part = survey_.parts.back();
    part.end = end;
    part.hasEnd = hasEnd;
    const DxfPlaced placed = placement_.Finish();
    survey_.needsRewriting = survey_.needsRewriting || isVariableOpen_;
    isVariableOpen_ = false;
    survey_.needsRewriting = survey_.needsRewriting || !hasEnd || placed.lacksSequenceEnd ||
                             placed.lacksBlockEnd || !table_.empty();
    isOpen_ = false;
  }

  // Whether a record of that section may stand in the one that is open.
  static bool Fits(DxfSection open, DxfSection wanted) {
    switch (open) {
      case DxfSection::kHeader: return false;
      case DxfSection::kClasses:
      case DxfSection::kTables:
        return wanted != DxfSection::kBlocks && wanted != DxfSection::kEntities &&
               wanted != DxfSection::kTables;
      case DxfSection::kBlocks:
        return wanted != DxfSection::kTables && wanted != DxfSection::kClasses &&
               wanted != DxfSection::kObjects;
      case DxfSection::kEntities:
        return wanted == DxfSection::kEntities || wanted == DxfSection::kUnknown;
      case DxfSection::kObjects: return wanted != DxfSection::kEntities;
      default: return true;
    }
  }

  void BeginContent(const DxfPair& pair, DxfSection wanted) {
    if (!isOpen_ || (Open() != wanted && !Fits(Open(), wanted))) {
      EndSection(pair.begin, false);
      Begin(wanted == DxfSection::kUnknown ? DxfSection::kEntities : wanted, pair.begin);
      survey_.parts.back().hasBegin = false;
      survey_.needsRewriting = true;
    }
    survey_.parts.back().hasRecords = true;
    record_ = DxfRecord::Begin(pair);
    isInRecord_ = true;
  }

  void FinishRecord() {
    if (!isInRecord_) {
      return;
    }
    isInRecord_ = false;
    hasFlaw_ = hasFlaw_ || record_.hasOddName;
    ++survey_.recordCount;
    if (!record_.hasHandle || record_.handle == 0) {
      hasMissingHandle_ = hasMissingHandle_ || IsHandleWanted();
    } else if (!survey_.handles.Insert(record_.handle)) {
      survey_.needsRewriting = true;
    } else if (record_.handle < kRoomForMore) {
      survey_.largestHandle = std::max(survey_.largestHandle, record_.handle);
    }
    switch (Open()) {
      case DxfSection::kTables: FinishTableRecord(); break;
      case DxfSection::kBlocks:
      case DxfSection::kEntities: FinishEntity(); break;
      default: break;
    }
  }

  bool IsHandleWanted() const {
    switch (Open()) {
      case DxfSection::kTables: return record_.name != "ENDTAB" && record_.name != "TABLE";
      case DxfSection::kBlocks:
      case DxfSection::kEntities: return true;
      default: return false;
    }
  }

  void FinishTableRecord() {
    if (record_.name == "TABLE") {
      hasFlaw_ =
          hasFlaw_ || (!IsDxfTable(record_.title) && IsDxfTable(DxfRecordName(record_.title)));
      survey_.needsRewriting = survey_.needsRewriting || !table_.empty() ||
                               !IsDxfTable(record_.title) || !IsNewTable(record_.title);
      table_ = record_.title;
      return;
    }
    if (record_.name == "ENDTAB") {
      survey_.needsRewriting = survey_.needsRewriting || table_.empty();
      table_ = {};
      return;
    }
    if (record_.name != table_) {
      survey_.needsRewriting = true;
    }
    if (record_.name == "LAYER") {
      AddLayer(record_.title, true);
    } else if (record_.name == "BLOCK_RECORD") {
      AddBlock(record_.title, record_.handle, true);
    }
  }

  bool IsNewTable(std::string_view name) {
    if (std::find(tables_.begin(), tables_.end(), name) != tables_.end()) {
      return false;
    }
    tables_.push_back(name);
    survey_.hasLayerTable = survey_.hasLayerTable || name == "LAYER";
    return true;
  }

  void AddLayer(std::string_view written, bool isInTable) {
    const std::string_view name = isInTable ? written : TrimmedDxfEnd(written);
    if (name.empty()) {
      return;
    }
    const auto [at, isNew] =
        survey_.layerByKey.try_emplace(DxfNameKey(name), survey_.layers.size());
    if (isNew) {
      survey_.layers.push_back({.name = name, .begin = record_.begin, .isInTable = isInTable});
      return;
    }
    DxfLayerName& layer = survey_.layers[at->second];
    survey_.needsRewriting = survey_.needsRewriting || (isInTable && layer.isInTable);
    if (isInTable && !layer.isInTable) {
      layer = {.name = name, .begin = record_.begin, .isInTable = true};
    }
  }

  void AddBlock(std::string_view name, std::uint64_t handle, bool hasRecord) {
    const auto [at, isNew] =
        survey_.blockByKey.try_emplace(DxfNameKey(name), survey_.blocks.size());
    std::size_t index = survey_.blocks.size();
    if (!isNew && hasRecord && survey_.blocks[at->second].hasRecord &&
        survey_.blocks[at->second].record == handle) {
      survey_.needsRewriting = true;  // the same once more
      return;
    }
    if (!isNew && !survey_.blocks[at->second].hasRecord) {
      index = at->second;
      survey_.blocks[index] = {
          .name = name, .record = handle, .begin = record_.begin, .hasRecord = hasRecord};
    } else {
      // Namesakes are told apart by their handles only.
      hasNamesakes_ = hasNamesakes_ || !isNew;
      survey_.blocks.push_back(
          {.name = name, .record = handle, .begin = record_.begin, .hasRecord = hasRecord});
    }
    if (handle != 0) {
      survey_.blockByRecord.try_emplace(handle, index);
    }
  }

  // Where a name is looked for among those that were noted.
  static std::size_t NotedSlot(std::string_view name) {
    const auto last = static_cast<unsigned char>(name.empty() ? '\0' : name.back());
    return (name.size() + last) % kNotedLayers;
  }

  void NoteLayer() {
    std::string_view& noted = notedLayers_.at(NotedSlot(record_.layer));
    if (!record_.hasLayer || record_.layer == noted) {
      return;
    }
    noted = record_.layer;
    AddLayer(record_.layer, false);
    const auto at = survey_.layerByKey.find(DxfNameKey(record_.layer));
    if (at != survey_.layerByKey.end() && survey_.layers[at->second].name != record_.layer) {
      survey_.needsRewriting = true;
    }
  }

  void FinishEntity() {
    ++survey_.entityCount;
    NoteLayer();
    survey_.hasSubclasses = survey_.hasSubclasses || record_.subclassCount != 0;
    lacksSubclasses_ =
        lacksSubclasses_ || LacksDxfSubclasses(record_) || LacksDxfEntityMarker(record_);
    const DxfPlaced placed = placement_.Next(record_);
    if (placed.lacksBlockEnd || placed.lacksSequenceEnd || record_.hasMisplacedProperty ||
        record_.hasUnknownSubclass || record_.hasSecondName || record_.hasForeignHandle ||
        record_.LacksGroups() || record_.WrongCounts() != 0) {
      survey_.needsRewriting = true;
    }
    switch (placed.place) {
      case DxfPlace::kBlockBegin: BeginBlock(); break;
      case DxfPlace::kBlockEnd: break;
      case DxfPlace::kEntity: FinishPlaced(); break;
      case DxfPlace::kSubentity: FinishSubentity(); break;
      case DxfPlace::kOrphan:
      case DxfPlace::kOutside: survey_.needsRewriting = true; break;
    }
  }

  // A vertex finds its owner by what stands before it, whatever it says itself.
  void FinishSubentity() {
    const bool isOwned =
        record_.owner == 0 || record_.owner == parent_ || record_.owner == parentOwner_;
    survey_.needsRewriting = survey_.needsRewriting || (record_.name == "ATTRIB" && !isOwned);
  }

  void FinishPlaced() {
    parent_ = record_.handle;
    parentOwner_ = record_.owner;
    if (Open() == DxfSection::kBlocks) {
      if (record_.owner != blockRecord_) {
        survey_.needsRewriting = true;
      }
      return;
    }
    const bool hasSpace = record_.owner != 0 && (record_.owner == lastSpace_ ||
                                                 survey_.FindSpace(record_.owner) != nullptr);
    if (hasSpace) {
      lastSpace_ = record_.owner;
    }
    if (!hasSpace) {
      survey_.usesPaperSpace = survey_.usesPaperSpace || record_.isInPaper;
      survey_.needsRewriting = survey_.needsRewriting || !MayStayWithoutOwner();
    }
  }

  // LibreDWG puts an entity without an owner into model space.
  bool MayStayWithoutOwner() const {
    const bool isPlaceholder =
        record_.owner == kModelSpacePlaceholder &&
        survey_.blockByRecord.find(record_.owner) == survey_.blockByRecord.end();
    return !record_.isInPaper && (!record_.hasOwner || isPlaceholder);
  }

  // Records that lost their name, and those of spaces, are called as their BLOCK.
  void RenameRecord() {
    const auto at = survey_.blockByRecord.find(record_.owner);
    if (at == survey_.blockByRecord.end() ||
        survey_.blockByKey.contains(DxfNameKey(record_.title))) {
      return;
    }
    DxfBlockName& block = survey_.blocks[at->second];
    if (block.name.empty() || (IsDxfSpace(record_.title) && !IsDxfSpace(block.name))) {
      block.name = record_.title;
      block.isRenamed = true;
      survey_.blockByKey.emplace(DxfNameKey(record_.title), at->second);
      survey_.needsRewriting = true;
    }
  }

  void BeginBlock() {
    RenameRecord();
    const auto byRecord = survey_.blockByRecord.find(record_.owner);
    const auto byName = survey_.blockByKey.find(DxfNameKey(record_.title));
    if (byRecord != survey_.blockByRecord.end() &&
        (byName == survey_.blockByKey.end() || hasNamesakes_ ||
         survey_.blocks[byName->second].record == record_.owner)) {
      blockRecord_ = record_.owner;
      return;
    }
    survey_.needsRewriting = true;
    if (byName == survey_.blockByKey.end()) {
      AddBlock(record_.title, 0, false);
    }
    NoteOwnerOfBlock();
    blockRecord_ = byName == survey_.blockByKey.end() ? 0 : survey_.blocks[byName->second].record;
  }

  // What its record was called before that was lost.
  void NoteOwnerOfBlock() {
    const std::size_t index = survey_.blockByKey.at(DxfNameKey(record_.title));
    DxfBlockName& block = survey_.blocks[index];
    if (block.record == 0 && block.owner == 0 && record_.owner != 0 &&
        record_.owner < kRoomForMore) {
      block.owner = record_.owner;
      survey_.blockByRecord.try_emplace(record_.owner, index);
    }
  }

  void Finish() {
    FinishRecord();
    if (!survey_.hasEnd) {
      EndSection(text_.size(), false);
      survey_.end = text_.size();
      survey_.needsRewriting = true;
    }
    DxfSection last = DxfSection::kHeader;
    std::array<bool, kDxfSectionCount + 1> seen{};
    for (const DxfPart& part : survey_.parts) {
      bool& isSeen = seen.at(static_cast<std::size_t>(part.section));
      survey_.needsRewriting = survey_.needsRewriting || isSeen ||
                               part.section == DxfSection::kUnknown || part.section < last;
      isSeen = true;
      last = std::max(last, part.section);
    }
    const bool lacksLayer = std::any_of(
        survey_.layers.begin(), survey_.layers.end(),
        [](const DxfLayerName& layer) { return !layer.isInTable && layer.name != "0"; });
    survey_.needsRewriting = survey_.needsRewriting || lacksLayer || hasMissingHandle_ ||
                             lacksSubclasses_ || (survey_.IsOld() && survey_.entityCount != 0);
    constexpr std::size_t kLeastSize = 256;
    survey_.needsRewriting = survey_.needsRewriting || text_.size() < kLeastSize;
  }

  std::string_view text_;
  DxfPairReader pairs_;
  DxfSurvey survey_;
  DxfPlacement placement_{false};
  DxfRecord record_;
  bool isOpen_ = false;
  bool isInRecord_ = false;
  bool isRelease_ = false;
  bool hasVariables_ = false;    // in the section that is open
  bool isVariableOpen_ = false;  // its value is to come
  bool hasFlaw_ = false;
  bool hasNamesakes_ = false;
  bool hasMissingHandle_ = false;
  bool lacksSubclasses_ = false;
  std::string_view table_;
  std::vector<std::string_view> tables_;
  // Names as the last entities had them: most entities are on a few layers.
  static constexpr std::size_t kNotedLayers = 64;
  std::array<std::string_view, kNotedLayers> notedLayers_{};
  std::string_view content_;  // the name of the last record that is none of the brackets
  DxfSection contentSection_ = DxfSection::kUnknown;
  std::uint64_t blockRecord_ = 0;
  std::uint64_t parent_ = 0;  // the handle of the last entity that is no part of one
  std::uint64_t parentOwner_ = 0;
  std::uint64_t lastSpace_ = 0;  // the owner of the last entity that has one
};

}  // namespace

bool DxfSurvey::IsOld() const {
  return release.empty() || IsOldDxfRelease(KnownDxfRelease(release));
}

const DxfBlockName* DxfSurvey::FindBlock(std::string_view name) const {
  const auto at = blockByKey.find(DxfNameKey(name));
  return at == blockByKey.end() ? nullptr : &blocks[at->second];
}

const DxfBlockName* DxfSurvey::FindSpace(std::uint64_t record) const {
  const auto at = blockByRecord.find(record);
  return at != blockByRecord.end() && IsDxfSpace(blocks[at->second].name) ? &blocks[at->second]
                                                                          : nullptr;
}

const DxfBlockName* DxfSurvey::FindModelSpace() const {
  const DxfBlockName* block = FindBlock("*model_space");
  return block == nullptr && IsOld() ? FindBlock("$model_space") : block;
}

const DxfBlockName* DxfSurvey::FindPaperSpace() const {
  const DxfBlockName* block = FindBlock("*paper_space");
  return block == nullptr && IsOld() ? FindBlock("$paper_space") : block;
}

std::string_view KnownDxfRelease(std::string_view written) {
  const std::string name = UpperAscii(TrimmedDxf(written));
  for (const std::string_view release : kReleases) {
    if (release == name) {
      return release;
    }
  }
  for (const std::string_view release : kLateReleases) {
    if (release == name) {
      return release;
    }
  }
  for (const BetweenReleases& between : kBetween) {
    if (name.size() == between.first.size() && name >= between.first && name <= between.last) {
      return between.release;
    }
  }
  return {};
}

bool IsOldDxfRelease(std::string_view release) {
  constexpr std::string_view kFirstNew = "AC1010";
  return release.empty() || release < kFirstNew || release > "AC2" || release.starts_with("MC");
}

DxfSurvey SurveyDxf(std::string_view text) {
  return Surveyor(text).Run();
}
