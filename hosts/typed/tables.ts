// Prints what stands in a drawing's tables and in the attributes of its blocks.
//
//   dwg_import_worker plan.dwg --complete | node tables.js     (compiled with tsc)

import {readFileSync} from "node:fs";
import {Entity, parseDocument} from "../../models/typescript/dwg_document_complete";

function lines(entity: Entity): string[] {
  switch (entity.type) {
    case "ACAD_TABLE":
      return entity.cells.flatMap((cell) =>
          cell.text === undefined ? [] : [`cell ${cell.row} ${cell.column}: ${cell.text}`]);
    case "INSERT":
      return (entity.attributes ?? []).map(
          (attribute) => `${entity.blockName} ${attribute.tag}: ${attribute.text}`);
    default:
      return [];
  }
}

const document = parseDocument(readFileSync(0, "utf8"));
for (const entities of [document.entities, ...document.layouts.map((layout) => layout.entities)]) {
  entities.flatMap(lines).forEach((line) => console.log(line));
}
