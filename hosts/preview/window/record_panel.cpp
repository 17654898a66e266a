#include "window/record_panel.hpp"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ask/blocks.hpp"
#include "ask/record_text.hpp"
#include "window/canvas.hpp"

namespace preview {
namespace {

// Of one key; a spline may have a million points.
constexpr int kMostRows = 2000;
constexpr qsizetype kLongestValue = 200;

QString TextOf(const QJsonValue& value) {
  if (value.isString()) {
    return value.toString();
  }
  if (value.isDouble()) {
    return QString::number(value.toDouble(), 'g', 12);
  }
  if (value.isBool()) {
    return value.toBool() ? "true" : "false";
  }
  if (value.isNull()) {
    return "null";
  }
  const QJsonDocument document =
      value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
  return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

QTreeWidgetItem* Row(const QString& key, const QJsonValue& value) {
  QString text = TextOf(value);
  if (text.size() > kLongestValue) {
    text = text.left(kLongestValue) + "…";
  }
  auto* row = new QTreeWidgetItem({key, text});
  row->setToolTip(0, key);
  row->setToolTip(1, text);
  return row;
}

// Members below the row of their list or object, as long as the budget of rows lasts.
// Documents nest a few levels deep, and the parser of JSON itself bounds how deep.
void AddMembers(QTreeWidgetItem* parent, const QJsonValue& value, int& budget) {
  const auto add = [&](const QString& key, const QJsonValue& member) {
    if (budget <= 0) {
      return;
    }
    const bool isLast = --budget == 0;
    QTreeWidgetItem* row =
        isLast ? new QTreeWidgetItem({"…", "more: copy the record to see them"}) : Row(key, member);
    parent->addChild(row);
    AddMembers(row, isLast ? QJsonValue() : member, budget);
  };
  const QJsonObject object = value.toObject();
  for (auto member = object.begin(); member != object.end(); ++member) {
    add(member.key(), member.value());
  }
  const QJsonArray list = value.toArray();
  for (qsizetype i = 0; i < list.size() && budget > 0; ++i) {
    add(QString::number(i), list[i]);
  }
}

}  // namespace

RecordPanel::RecordPanel(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(tree_ = new QTreeWidget);
  tree_->setHeaderLabels({"Key", "Value"});
  tree_->setAlternatingRowColors(true);
  tree_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  column->addWidget(copy_ = new QPushButton("Copy as &JSON"));
  copy_->setToolTip("Copies the record as the document has it");
  connect(copy_, &QPushButton::clicked, this, &RecordPanel::Copy);
  Fill();
}

void RecordPanel::Show(Canvas* canvas) {
  if (canvas_ != nullptr) {
    disconnect(canvas_, nullptr, this, nullptr);
  }
  canvas_ = canvas;
  if (canvas_ != nullptr) {
    connect(canvas_, &Canvas::picked, this, &RecordPanel::Fill);
    connect(canvas_, &QObject::destroyed, this, [this] { canvas_ = nullptr; });
  }
  Fill();
}

void RecordPanel::Copy() {
  if (!record_.isEmpty()) {
    QGuiApplication::clipboard()->setText(
        QString::fromUtf8(QJsonDocument(record_).toJson(QJsonDocument::Indented)));
  }
}

void RecordPanel::Fill() {
  tree_->clear();
  record_ = {};
  copy_->setEnabled(false);
  if (canvas_ == nullptr || !canvas_->scene() || !canvas_->selected()) {
    tree_->addTopLevelItem(new QTreeWidgetItem({"Click something in the drawing."}));
    tree_->topLevelItem(0)->setFirstColumnSpanned(true);
    return;
  }
  const Scene& scene = *canvas_->scene();
  const Item& item = ItemOf(scene, *canvas_->selected());
  if (item.record >= 0) {
    record_ = scene.records[static_cast<std::size_t>(item.record)];
    copy_->setEnabled(true);
  }
  AddPlace();
  for (auto member = record_.begin(); member != record_.end(); ++member) {
    if (member.key() != "type" && member.key() != "handle" && member.key() != "layer") {
      QTreeWidgetItem* row = Row(member.key(), member.value());
      tree_->addTopLevelItem(row);
      int budget = kMostRows;
      AddMembers(row, member.value(), budget);
    }
  }
}

void RecordPanel::AddRow(const QString& key, const QString& value) {
  if (value.isEmpty()) {
    return;
  }
  auto* row = new QTreeWidgetItem({key, value});
  row->setToolTip(1, value);
  QFont font = tree_->font();
  font.setBold(true);
  row->setFont(0, font);
  tree_->addTopLevelItem(row);
}

// What one wants to know first, and what the record itself does not say.
void RecordPanel::AddPlace() {
  const Scene& scene = *canvas_->scene();
  const Hit& hit = *canvas_->selected();
  const Item& item = ItemOf(scene, hit);
  const QRectF box = item.bounds.normalized();
  AddRow("Type", record_["type"].toString());
  AddRow("Handle", record_["handle"].toString());
  AddRow("Layer", record_["layer"].toString());
  if (item.layer >= 0) {
    const QString shown = scene.layers[static_cast<std::size_t>(item.layer)].name;
    AddRow("Drawn on layer", shown == record_["layer"].toString() ? QString() : shown);
  }
  AddRow("Blocks", BlockPathOf(scene, item).join(" / "));
  AddRow("Sheet", scene.sheets[hit.sheet].name +
                      (hit.viewport >= 0 ? QString(", through a viewport") : QString()));
  AddRow("From", QString("%1, %2").arg(box.left(), 0, 'f', 4).arg(box.top(), 0, 'f', 4));
  AddRow("To", QString("%1, %2").arg(box.right(), 0, 'f', 4).arg(box.bottom(), 0, 'f', 4));
  AddRow("Text", TextOfRecord(record_));
  if (const std::optional<Measured>& measured = canvas_->measured()) {
    AddRow("Length", QString::number(measured->length, 'f', 4));
    AddRow(measured->isClosed ? "Area" : "Area if closed", QString::number(measured->area, 'f', 4));
  }
}

}  // namespace preview
