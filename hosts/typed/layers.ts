// Says how many entities lie on each layer, and which texts a drawing holds.
//
//   dwg_import_worker plan.dwg | node layers.js     (compiled with tsc)

import {readFileSync} from "node:fs";
import {Entity, parseDocument} from "../../models/typescript/dwg_document";

/** What a text says, without its formatting. */
function plain(entity: Entity): string | undefined {
  switch (entity.type) {
    case "TEXT":
    case "DYNTEXT":
    case "MTEXT":
      return entity.html.replace(/<[^>]*>/g, "");
    case "MULTILEADER":
      return entity.text?.html.replace(/<[^>]*>/g, "");
    default:
      return undefined;
  }
}

const document = parseDocument(readFileSync(0, "utf8"));
const counts = new Map<string, number>();
for (const entity of document.entities) {
  counts.set(entity.layer, (counts.get(entity.layer) ?? 0) + 1);
  const text = plain(entity);
  if (text !== undefined) {
    console.log(`text ${text}`);
  }
}
for (const layer of document.layers) {
  console.log(`layer ${layer.name}: ${counts.get(layer.name) ?? 0}${layer.visible ? "" : ", off"}`);
}
