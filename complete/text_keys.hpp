// The further keys of records that carry text.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `textStyle` (group 7), `widthFactor` (41), `obliqueRad` (51), `mirroredX` and
// `mirroredY` (71) where they are set, and the keys of the entity's plane.
void AppendTextFurtherKeys(JsonOut& out, const Dwg_Entity_TEXT& text,
                           const CompleteContext& context);

// The same, and the alignment as a TEXT has it (`halign`, `valign`, `ax`, `ay`),
// `fieldLength` (73), `lockedPosition` (280) and `multiline`.
void AppendAttributeFurtherKeys(JsonOut& out, const Dwg_Entity_ATTRIB& attribute,
                                const CompleteContext& context);
void AppendAttributeDefinitionFurtherKeys(JsonOut& out, const Dwg_Entity_ATTDEF& definition,
                                          const CompleteContext& context);

// `textStyle` (group 7), `lineSpacingStyle` (73), `lineSpacingFactor` (44),
// `flowDirection` (72), `extentsWidth` and `extentsHeight` (42, 43), `frameHeight` (46),
// `background`, `columns` and the keys of the entity's plane.
void AppendMtextFurtherKeys(JsonOut& out, const Dwg_Entity_MTEXT& mtext,
                            const CompleteContext& context, const EntityOrigin& origin);
