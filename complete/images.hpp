// Records of images, wipeouts and PDF underlays, and what those records lack.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The keys of the plain form, of hidden images too.
void AppendAnyImage(JsonOut& out, const Dwg_Entity_IMAGE& image, const CompleteContext& context);

// `pz0`, `uz`, `vz`, `shown`, `brightness`, `contrast`, `fade` (percent), `transparent`
// (when it is), `clip`.
void AppendImageFurtherKeys(JsonOut& out, const Dwg_Entity_IMAGE& image);

// The keys of the plain form; a rectangle has four corners.
void AppendWholeWipeout(JsonOut& out, const Dwg_Entity_WIPEOUT& wipeout);

// `inverted` (when what lies outside is covered), and `world`, its corners.
void AppendWipeoutFurtherKeys(JsonOut& out, const Dwg_Entity_WIPEOUT& wipeout);

// The keys of the plain form, with the declared path when the file was not found.
void AppendAnyPdfUnderlay(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay,
                          const CompleteContext& context);

// `found`, `iz`, `sz`, `shown`, `monochrome`, `adjusted` (to the background), `contrast`,
// `fade` (percent), `clip`, `extrusion`.
void AppendPdfUnderlayFurtherKeys(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay,
                                  const CompleteContext& context);
