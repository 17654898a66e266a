#include "paint/html_page.hpp"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "ask/record_text.hpp"
#include "paint/look.hpp"
#include "paint/svg.hpp"

namespace preview {
namespace {

constexpr char kHead[] = R"(<meta name="viewport" content="width=device-width,initial-scale=1">
<meta http-equiv="Content-Security-Policy"
 content="default-src 'none';style-src 'unsafe-inline';script-src 'unsafe-inline';img-src data:">
<style>
:root{--paper:#fff;color:#000;background:#fff;font:14px/1.4 system-ui,sans-serif}
body{margin:0;height:100vh;display:flex;flex-direction:column}
header,footer{display:flex;gap:.5em;align-items:center;padding:.3em .6em;flex-wrap:wrap}
header h1{font-size:1em;margin:0 auto 0 0}
main{flex:1;display:flex;min-height:0}
#stage{flex:1;position:relative;overflow:hidden;touch-action:none;cursor:grab}
.sheet{position:absolute;inset:0;width:100%;height:100%;display:none}
.sheet.open{display:block}
aside{width:19em;overflow:auto;padding:.4em .6em;border-left:1px solid #8888}
aside h2{font-size:1em;margin:.8em 0 .3em}
aside input[type=search]{font:inherit;width:100%;box-sizing:border-box;color:inherit;
 background:none;border:1px solid #8888;border-radius:.3em;padding:.15em .4em}
#hits{list-style:none;margin:.3em 0;padding:0;max-height:12em;overflow:auto}
#hits button{display:block;width:100%;text-align:left;border:0;overflow:hidden;
 text-overflow:ellipsis;white-space:nowrap}
#keys{border-collapse:collapse;width:100%;table-layout:fixed;font-size:.9em}
#keys th{text-align:left;width:40%;font-weight:600;vertical-align:top;overflow-wrap:anywhere}
#keys td{overflow-wrap:anywhere;vertical-align:top}
.picked{fill:none;stroke:#ff7a00;stroke-width:3;vector-effect:non-scaling-stroke;
 pointer-events:none}
aside label{display:block;white-space:nowrap;overflow:hidden;text-overflow:ellipsis}
aside i{display:inline-block;width:.8em;height:.8em;border:1px solid #8888;margin-right:.4em}
button{font:inherit;color:inherit;background:none;border:1px solid #8888;border-radius:.3em;
 padding:.15em .6em}
button[aria-selected=true]{background:#8884;font-weight:600}
#defs{position:absolute;width:0;height:0}
)";

constexpr char kScript[] = R"(
'use strict';
const stage = document.getElementById('stage');
const sheets = [...document.querySelectorAll('.sheet')];
const tabs = [...document.querySelectorAll('[role=tab]')];
const boxes = sheets.map(s => s.getAttribute('viewBox').split(' ').map(Number));
const views = boxes.map(b => b.slice());
let open = 0;

function apply() { sheets[open].setAttribute('viewBox', views[open].join(' ')); }
function fit() { views[open] = boxes[open].slice(); apply(); }
function show(i) {
  open = i;
  sheets.forEach((s, k) => s.classList.toggle('open', k === i));
  tabs.forEach((t, k) => t.setAttribute('aria-selected', k === i));
}
// Where a point of the window lies in the open sheet.
function at(x, y) {
  const m = sheets[open].getScreenCTM().inverse();
  return [m.a * x + m.c * y + m.e, m.b * x + m.d * y + m.f];
}
function zoom(factor, x, y) {
  const v = views[open], [px, py] = at(x, y);
  const f = Math.min(Math.max(factor, boxes[open][2] / 1e4 / v[2]), boxes[open][2] * 50 / v[2]);
  views[open] = [px + (v[0] - px) * f, py + (v[1] - py) * f, v[2] * f, v[3] * f];
  apply();
}
function pan(x0, y0, x1, y1) {
  const a = at(x0, y0), b = at(x1, y1), v = views[open];
  views[open] = [v[0] + a[0] - b[0], v[1] + a[1] - b[1], v[2], v[3]];
  apply();
}
tabs.forEach((t, i) => t.addEventListener('click', () => show(i)));
document.querySelectorAll('input[data-layer]').forEach(input => input.addEventListener('change', () =>
  document.documentElement.style.setProperty('--v' + input.dataset.layer,
                                             input.checked ? 'inline' : 'none')));
document.getElementById('all').addEventListener('click', () => {
  const inputs = [...document.querySelectorAll('input[data-layer]')];
  const on = !inputs.every(i => i.checked);
  inputs.forEach(i => { i.checked = on; i.dispatchEvent(new Event('change')); });
});
document.getElementById('fit').addEventListener('click', fit);
document.getElementById('dark').addEventListener('click', () =>
  document.documentElement.classList.toggle('dark'));
stage.addEventListener('wheel', e => {
  e.preventDefault();
  zoom(Math.pow(1.0015, e.deltaY), e.clientX, e.clientY);
}, {passive: false});
stage.addEventListener('dblclick', fit);
const fingers = new Map();
stage.addEventListener('pointerdown', e => {
  stage.setPointerCapture(e.pointerId);
  fingers.set(e.pointerId, [e.clientX, e.clientY]);
});
stage.addEventListener('pointermove', e => {
  const from = fingers.get(e.pointerId);
  if (!from) return;
  const to = [e.clientX, e.clientY];
  if (fingers.size === 1) {
    pan(...from, ...to);
  } else {
    const other = [...fingers].find(([id]) => id !== e.pointerId)[1];
    const before = Math.hypot(from[0] - other[0], from[1] - other[1]);
    const after = Math.hypot(to[0] - other[0], to[1] - other[1]);
    if (after > 0) zoom(before / after, other[0], other[1]);
  }
  fingers.set(e.pointerId, to);
});
for (const end of ['pointerup', 'pointercancel'])
  stage.addEventListener(end, e => fingers.delete(e.pointerId));
addEventListener('keydown', e => {
  if (e.target.tagName === 'INPUT') return;
  const box = stage.getBoundingClientRect();
  const x = box.left + box.width / 2, y = box.top + box.height / 2;
  if (e.key === '+') zoom(0.8, x, y);
  if (e.key === '-') zoom(1.25, x, y);
  if (e.key === '0') fit();
});
)";

// Asking: what was clicked, and where a text stands. Elements name their records
// (data-r) and uses of blocks (data-u); the records are unpacked when they are first
// asked for.
constexpr char kAskScript[] = R"(
const $ = id => document.getElementById(id);
let data = null;
async function load() {
  if (data) return;
  const bytes = Uint8Array.from(atob($('records').textContent), c => c.charCodeAt(0));
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  data = await new Response(stream).json();
}

// The path that clips a group, or null.
const clipOf = group => {
  const clip = (group.getAttribute('clip-path') || '').match(/#([^)]*)/);
  return clip && $(clip[1]).firstChild.getAttribute('d');
};

// The groups of elements that a sheet shows, topmost first: its own, then model space
// through each viewport.
function groupsOf(sheet) {
  const own = sheet.querySelector(':scope > g.items');
  const uses = [...sheet.querySelectorAll('use[href="#model"]')].reverse().map(use => ({
    group: $('model'), use, matrix: use.transform.baseVal.consolidate().matrix,
    clip: clipOf(use.parentNode)}));
  const still = stage.querySelector('svg').createSVGMatrix();
  return own ? [{group: own, use: null, matrix: still, clip: null}, ...uses] : uses;
}

const numbers = d => (d.match(/-?[\d.]+/g) || []).map(Number);
const frame = el => {
  const m = el.transform.baseVal.consolidate().matrix;
  return [[0, 0], [1, 0], [1, 1], [0, 1]].map(([x, y]) =>
    [m.a * x + m.c * y + m.e, m.b * x + m.d * y + m.f]);
};
const pathOf = el => el.getAttribute('d') ||
  'M' + frame(el).map(p => p.join(' ')).join('L') + 'Z';

const indices = new Map();
// The elements of a group with their boxes.
function entriesOf(group) {
  if (!indices.has(group)) {
    indices.set(group, [...group.querySelectorAll('[data-r]')].map(el => {
      const n = numbers(pathOf(el)), box = [Infinity, Infinity, -Infinity, -Infinity];
      for (let i = 0; i + 1 < n.length; i += 2) {
        box[0] = Math.min(box[0], n[i]); box[2] = Math.max(box[2], n[i]);
        box[1] = Math.min(box[1], n[i + 1]); box[3] = Math.max(box[3], n[i + 1]);
      }
      return {el, box, clip: clipOf(el.parentNode), r: +el.dataset.r, u: +(el.dataset.u ?? -1)};
    }));
  }
  return indices.get(group);
}

function segments(d, visit) {
  let start = null, last = null;
  for (const [, command, rest] of d.matchAll(/([MLCZ])([^MLCZ]*)/g)) {
    const n = numbers(rest);
    if (command === 'M') start = last = [n[0], n[1]];
    else if (command === 'Z') { visit(last, start, true); last = start; }
    else if (command === 'L') { visit(last, n, true); last = n; }
    else for (let i = 1, from = last; i <= 12; i++) {
      const t = i / 12, s = 1 - t;
      const to = [0, 1].map(k => s * s * s * from[k] + 3 * s * s * t * n[k] +
                                 3 * s * t * t * n[k + 2] + t * t * t * n[k + 4]);
      visit(last, to, true);
      last = to;
    }
  }
}
function probe(d, x, y) {
  let distance = Infinity, inside = false;
  segments(d, ([ax, ay], [bx, by]) => {
    const wx = bx - ax, wy = by - ay, q = wx * wx + wy * wy;
    const t = q > 0 ? Math.min(Math.max(((x - ax) * wx + (y - ay) * wy) / q, 0), 1) : 0;
    distance = Math.min(distance, Math.hypot(x - ax - t * wx, y - ay - t * wy));
    if ((ay > y) !== (by > y) && x < ax + (y - ay) / (by - ay) * wx) inside = !inside;
  });
  return {distance, inside};
}

const off = (style, name, value) => style && style.getPropertyValue(name).trim() === value;
function isShown(el, use) {
  const root = document.documentElement.style;
  return [...el.classList].every(name => {
    const n = name.slice(1);
    return name[0] === 'l' ? !off(root, '--v' + n, 'none') && !off(use?.style, '--f' + n, 'none')
                           : !off(use?.style, '--h' + n, 'hidden');
  });
}
const isFilled = el => el.tagName === 'image' || (el.getAttribute('fill') || 'none') !== 'none';
const within = (box, x, y, rim) =>
  x >= box[0] - rim && x <= box[2] + rim && y >= box[1] - rim && y <= box[3] + rim;

function hitAt(x, y) {
  const reach = 5 / sheets[open].getScreenCTM().a, [px, py] = at(x, y);
  for (const seen of groupsOf(sheets[open])) {
    if (seen.clip && !probe(seen.clip, px, py).inside) continue;
    const m = seen.matrix.inverse();
    const gx = m.a * px + m.c * py + m.e, gy = m.b * px + m.d * py + m.f;
    const rim = reach * Math.hypot(m.a, m.b), entries = entriesOf(seen.group);
    for (let i = entries.length; i-- > 0;) {
      const {el, box, clip, r} = entries[i];
      if (!within(box, gx, gy, rim) || !isShown(el, seen.use)) continue;
      if (clip && !probe(clip, gx, gy).inside) continue;
      const {distance, inside} = probe(pathOf(el), gx, gy);
      // A text counts as its box.
      if (distance <= rim || (isFilled(el) && (inside || r in data.texts)))
        return {...seen, sheet: open, entry: entries[i]};
    }
  }
  return null;
}

let picked = null;
function row(key, value) {
  const line = $('keys').insertRow(), head = document.createElement('th');
  const text = typeof value === 'string' ? value : JSON.stringify(value);
  head.textContent = key;
  line.append(head);
  line.insertCell().textContent = text.length > 300 ? text.slice(0, 300) + '…' : text;
}
const same = (a, b) => a.r === b.r && a.u === b.u;
function select(hit) {
  document.querySelectorAll('.picked').forEach(el => el.remove());
  $('keys').replaceChildren();
  $('nothing').hidden = !!hit;
  $('copy').hidden = !hit;
  picked = hit && data.records[hit.entry.r];
  if (!hit) return;
  const outline = document.createElementNS('http://www.w3.org/2000/svg', 'path');
  const m = hit.matrix;
  outline.setAttribute('class', 'picked');
  outline.setAttribute('transform', `matrix(${m.a} ${m.b} ${m.c} ${m.d} ${m.e} ${m.f})`);
  outline.setAttribute('d', entriesOf(hit.group).filter(e => same(e, hit.entry))
    .map(e => pathOf(e.el)).join(''));
  sheets[hit.sheet].append(outline);
  const blocks = [];
  for (let u = hit.entry.u; u >= 0; u = data.uses[u][1]) blocks.unshift(data.uses[u][0]);
  if (blocks.length) row('Blocks', blocks.join(' / '));
  row('Sheet', tabs[hit.sheet].textContent);
  for (const key of ['type', 'handle', 'layer']) if (key in picked) row(key, picked[key]);
  for (const [key, value] of Object.entries(picked))
    if (!['type', 'handle', 'layer'].includes(key)) row(key, value);
}
async function pick(x, y) {
  await load();
  select(hitAt(x, y));
}
async function copy() {
  const text = JSON.stringify(picked, null, 1);
  try {
    await navigator.clipboard.writeText(text);
  } catch {
    const area = document.createElement('textarea');
    area.value = text;
    document.body.append(area);
    area.select();
    document.execCommand('copy');
    area.remove();
  }
}

function jump(hit) {
  if (hit.sheet !== open) show(hit.sheet);
  const m = hit.matrix, all = boxes[open];
  const found = entriesOf(hit.group).filter(e => same(e, hit.entry)).map(e => e.box);
  const corners = found.flatMap(b => [[b[0], b[1]], [b[2], b[1]], [b[0], b[3]], [b[2], b[3]]])
    .map(([x, y]) => [m.a * x + m.c * y + m.e, m.b * x + m.d * y + m.f]);
  const xs = corners.map(c => c[0]), ys = corners.map(c => c[1]);
  const x0 = Math.min(...xs), x1 = Math.max(...xs), y0 = Math.min(...ys), y1 = Math.max(...ys);
  const ratio = all[3] / all[2];
  const width = Math.max(3 * (x1 - x0), 3 * (y1 - y0) / ratio, all[2] / 200);
  views[open] = [(x0 + x1 - width) / 2, (y0 + y1 - width * ratio) / 2, width, width * ratio];
  apply();
  select(hit);
}
const MOST_HITS = 1000;
let hits = [], current = -1;
async function find(text) {
  await load();
  hits = [];
  current = -1;
  const wanted = text.trim().toLowerCase();
  if (wanted) for (let s = 0; s < sheets.length && hits.length < MOST_HITS; s++) {
    // Model space is found where it is whole.
    const seen = groupsOf(sheets[s]).find(g => s === 0 || g.use === null);
    let last = null;
    for (const entry of seen ? entriesOf(seen.group) : []) {
      const said = data.texts[entry.r];
      if (said === undefined || (last && same(last, entry)) ||
          !said.toLowerCase().includes(wanted) || hits.length === MOST_HITS) continue;
      hits.push({...seen, sheet: s, entry, said});
      last = entry;
    }
  }
  $('hits').replaceChildren(...hits.map((hit, i) => {
    const line = document.createElement('li'), button = document.createElement('button');
    button.textContent = tabs[hit.sheet].textContent + ': ' + hit.said.replace(/\s+/g, ' ');
    button.addEventListener('click', () => jump(hits[current = i]));
    line.append(button);
    return line;
  }));
  $('count').textContent = wanted ? hits.length + ' found' : '';
}
function step(by) {
  if (!hits.length) return;
  current = current < 0 && by < 0 ? hits.length - 1 : (current + by + hits.length) % hits.length;
  jump(hits[current]);
}
let pressed = null;
stage.addEventListener('pointerdown', e => { pressed = [e.clientX, e.clientY]; });
stage.addEventListener('pointerup', e => {
  if (pressed && e.button === 0 && fingers.size === 0 &&
      Math.hypot(e.clientX - pressed[0], e.clientY - pressed[1]) < 4) pick(e.clientX, e.clientY);
  pressed = null;
});
$('copy').addEventListener('click', copy);
$('find').addEventListener('input', e => find(e.target.value));
$('find').addEventListener('keydown', e => { if (e.key === 'Enter') step(e.shiftKey ? -1 : 1); });
addEventListener('keydown', e => {
  if (e.key === 'F3') { e.preventDefault(); step(e.shiftKey ? -1 : 1); }
  if (e.key === 'f' && (e.ctrlKey || e.metaKey)) { e.preventDefault(); $('find').select(); }
});
show(0);
)";

QByteArray DarkRule() {
  const QByteArray dark = BackgroundOf(true).name().toLatin1();
  return ":root.dark{--paper:" + dark + ";color:#fff;background:" + dark + "}\n";
}

QByteArray Escaped(const QString& text) {
  return text.toHtmlEscaped().toUtf8();
}

QByteArray Tabs(const Scene& scene) {
  QByteArray out;
  for (const Sheet& sheet : scene.sheets) {
    out += "<button role=\"tab\">" + Escaped(sheet.name) + "</button>\n";
  }
  return out;
}

QByteArray LayerSwitches(const Scene& scene) {
  QByteArray out;
  for (std::size_t i = 0; i < scene.layers.size(); ++i) {
    const Layer& layer = scene.layers[i];
    out += "<label><input type=\"checkbox\" data-layer=\"" + QByteArray::number(i) + '"' +
           (layer.visible ? " checked" : "") +
           "><i style=\"background:" + QColor::fromRgb(layer.color).name().toLatin1() + "\"></i>" +
           Escaped(layer.name) + "</label>\n";
  }
  return out;
}

QByteArray Notes(const Scene& scene) {
  if (scene.notes.isEmpty()) {
    return {};
  }
  QByteArray out = "<details><summary>" + QByteArray::number(scene.notes.size()) +
                   (scene.notes.size() == 1 ? " note" : " notes") + "</summary><ul id=\"notes\">\n";
  for (const QString& note : scene.notes) {
    out += "<li>" + Escaped(note) + "</li>\n";
  }
  return out + "</ul></details>\n";
}

// The records, their texts and the uses of blocks, packed: read as they are they would
// be as large as the page without them.
QByteArray Records(const Scene& scene) {
  QJsonArray records;
  QJsonObject texts;
  for (std::size_t i = 0; i < scene.records.size(); ++i) {
    const QJsonObject record = scene.records[i];
    const QString text = TextOfRecord(record);
    if (!text.isEmpty()) {
      texts.insert(QString::number(records.size()), text);
    }
    records.append(record);
  }
  QJsonArray uses;
  for (const BlockUse& use : scene.uses) {
    uses.append(QJsonArray{use.block, use.parent});
  }
  const QJsonObject all{{"records", records}, {"texts", texts}, {"uses", uses}};
  // Behind Qt's own four bytes, which hold the size, lies what zlib wrote.
  return qCompress(QJsonDocument(all).toJson(QJsonDocument::Compact), 9).mid(4).toBase64();
}

constexpr char kPanels[] =
    "<input id=\"find\" type=\"search\" placeholder=\"Find text (Ctrl+F, F3)\" "
    "aria-label=\"Find text\"><span id=\"count\"></span>\n<ol id=\"hits\"></ol>\n"
    "<h2>Record</h2>\n<p id=\"nothing\">Click something in the drawing.</p>\n"
    "<button id=\"copy\" hidden>Copy as JSON</button><table id=\"keys\"></table>\n"
    "<h2>Layers</h2>\n";

QByteArray Sheets(const Scene& scene, const ExportOptions& options) {
  QByteArray out;
  for (std::size_t i = 0; i < scene.sheets.size(); ++i) {
    out += SvgSheetElement(scene, scene.sheets[i], PictureArea(scene.sheets[i], {}), options,
                           "sheet" + QByteArray::number(i));
  }
  return out;
}

}  // namespace

QByteArray HtmlPage(const Scene& scene, const QString& title, const ExportOptions& options) {
  ExportOptions naming = options;
  naming.namesRecords = true;
  const bool dark = IsDark(options.background);
  return QByteArray("<!DOCTYPE html>\n<html") + (dark ? " class=\"dark\"" : "") + " style=\"" +
         SvgHiddenLayers(scene) + "\">\n<head><meta charset=\"utf-8\"><title>" + Escaped(title) +
         "</title>\n" + kHead + DarkRule() + SvgStyle(scene) +
         "</style></head>\n<body>\n<header><h1>" + Escaped(title) + "</h1><nav role=\"tablist\">" +
         Tabs(scene) +
         "</nav><button id=\"fit\">Fit</button><button id=\"dark\">Dark</button></header>\n<main>"
         "<div id=\"stage\">\n<svg id=\"defs\"><defs>" +
         SvgModelGroup(scene, naming) + "</defs></svg>\n" + Sheets(scene, naming) +
         "</div>\n<aside>" + kPanels + "<button id=\"all\">All layers</button>\n" +
         LayerSwitches(scene) + "</aside></main>\n<footer>" + Notes(scene) +
         "</footer>\n<script id=\"records\" type=\"text/plain\">" + Records(scene) +
         "</script>\n<script>" + kScript + kAskScript + "</script>\n</body></html>\n";
}

}  // namespace preview
