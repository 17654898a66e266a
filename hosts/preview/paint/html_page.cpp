#include "paint/html_page.hpp"

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
aside{width:15em;overflow:auto;padding:.4em .6em;border-left:1px solid #8888}
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
  const box = stage.getBoundingClientRect();
  const x = box.left + box.width / 2, y = box.top + box.height / 2;
  if (e.key === '+') zoom(0.8, x, y);
  if (e.key === '-') zoom(1.25, x, y);
  if (e.key === '0') fit();
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
  const bool dark = IsDark(options.background);
  return QByteArray("<!DOCTYPE html>\n<html") + (dark ? " class=\"dark\"" : "") + " style=\"" +
         SvgHiddenLayers(scene) + "\">\n<head><meta charset=\"utf-8\"><title>" + Escaped(title) +
         "</title>\n" + kHead + DarkRule() + SvgStyle(scene) +
         "</style></head>\n<body>\n<header><h1>" + Escaped(title) + "</h1><nav role=\"tablist\">" +
         Tabs(scene) +
         "</nav><button id=\"fit\">Fit</button><button id=\"dark\">Dark</button></header>\n<main>"
         "<div id=\"stage\">\n<svg id=\"defs\"><defs>" +
         SvgModelGroup(scene, options) + "</defs></svg>\n" + Sheets(scene, options) +
         "</div>\n<aside><button id=\"all\">All layers</button>\n" + LayerSwitches(scene) +
         "</aside></main>\n<footer>" + Notes(scene) + "</footer>\n<script>" + kScript +
         "</script>\n</body></html>\n";
}

}  // namespace preview
