#include "complete/document.hpp"

#include <string_view>
#include <utility>

#include "complete/blocks.hpp"
#include "complete/complete_context.hpp"
#include "complete/layers.hpp"
#include "complete/palette.hpp"
#include "complete/sections.hpp"
#include "complete/spaces.hpp"
#include "complete/text_decoder.hpp"
#include "document/prepass.hpp"
#include "document/warnings.hpp"
#include "encode/json_text.hpp"
#include "entities/writer_memory.hpp"

namespace {

constexpr std::string_view kFormVersion = "2.0.0";

void AppendSection(JsonOut& out, Stage stage, std::string_view key,
                   void (*append)(JsonOut&, const CompleteContext&), const CompleteContext& context,
                   StageObserver& observer) {
  observer.Begin(stage);
  out += key;
  append(out, context);
  observer.End(stage);
}

// How the drawing's text was read.
void AppendCodePage(JsonOut& out, const TextReading& reading) {
  AppendQuotedKey(out, ",\"codePage\":{\"name\":", reading.form);
  AppendQuotedKey(out, ",\"by\":", reading.by);
  if (!reading.named.empty()) {
    AppendQuotedKey(out, ",\"named\":", DecodeText(TextForm::kWindows1252, reading.named.c_str()));
  }
  out += '}';
}

// The same drawing, its text as it means it, its colour indices as CAD programs show
// them.
Drawing AsShown(const Drawing& drawing, const TextDecoder& decoder) {
  return {.data = drawing.data,
          .textForm = drawing.textForm,
          .storedText = drawing.storedText,
          .dxfHeader = drawing.dxfHeader,
          .folder = drawing.folder,
          .unknownEntities = drawing.unknownEntities,
          .decoder = &decoder,
          .palette = ScreenPalette()};
}

}  // namespace

void AppendCompleteDocument(JsonOut& out, JsonOut& further, const Drawing& drawing,
                            const DocumentOptions& options, std::vector<std::string> warnings,
                            StageObserver& observer) {
  observer.Begin(Stage::kPrepass);
  const DrawingTextDecoder decoder(drawing.textForm, drawing.storedText);
  const Drawing shown = AsShown(drawing, decoder);
  LookupTables baseTables = BuildLookupTables(shown, Grouping::kNone);
  const CompleteTables tables = BuildCompleteTables(shown, baseTables);
  observer.End(Stage::kPrepass);

  Findings findings{.warnings = std::move(warnings), .skippedTypes = drawing.unknownEntities};
  WriterMemory memory;
  const EntityContext base{.drawing = shown,
                           .tables = baseTables,
                           .verbose = options.verbose,
                           .findings = findings,
                           .memory = memory};
  const CompleteContext context{.base = base, .tables = tables};
  AppendQuotedKey(out, "{\"form\":{\"name\":\"complete\",\"version\":", kFormVersion);
  AppendQuotedKey(out, "},\"dwgVersion\":", VersionWord(drawing.data.header.version));
  AppendIntKey(out, ",\"insunits\":", drawing.data.header_vars.INSUNITS);
  AppendSection(out, Stage::kLayers, ",\"layers\":", AppendCompleteLayers, context, observer);
  AppendSection(out, Stage::kAssets, ",\"assets\":", AppendCompleteAssets, context, observer);
  AppendSection(out, Stage::kModelSpace, ",\"entities\":", AppendCompleteModelSpace, context,
                observer);
  AppendSection(out, Stage::kLayouts, ",\"layouts\":", AppendCompleteLayouts, context, observer);
  AppendCodePage(further, decoder.reading());
  AppendFurtherSections(further, context);
  AppendWarnings(out, findings);
}
