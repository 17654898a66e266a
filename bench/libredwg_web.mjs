// Reads a drawing with the npm package that runs LibreDWG in WebAssembly, and
// converts it to that package's model: node libredwg_web.mjs FOLDER DRAWING
import { readFileSync } from "node:fs";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";

const [folder, drawing] = process.argv.slice(2);
const packageFolder = resolve(folder, "node_modules/@mlightcad/libredwg-web");
const { LibreDwg, Dwg_File_Type } =
  await import(pathToFileURL(join(packageFolder, "dist/libredwg-web.js")).href);
const library = await LibreDwg.create(join(packageFolder, "wasm"));
const type = drawing.endsWith(".dxf") ? Dwg_File_Type.DXF : Dwg_File_Type.DWG;
const data = library.dwg_read_data(readFileSync(drawing), type);
const model = library.convert(data);
console.log(model.entities.length);
library.dwg_free(data);
