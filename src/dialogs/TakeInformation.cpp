// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TakeInformation.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <optional>
#include <string>
#include <utility>

#include "controls/Appearance.h"
#include "controls/NumberText.h"
#include "controls/PlainText.h"
#include "controls/Reason.h"
#include "dialogs/PathText.h"

namespace {

using Line = TakeFacts::Line;

constexpr QSize kTreeSize(520, 420);
constexpr int kFieldWidth = 190;
constexpr int kLook = 100;  // ms

// As the tool prints them.
QString figure(const std::optional<double>& value, int digits, const char* unit) {
  if (!value) return QStringLiteral("–");
  const QString number = NumberText::of(*value + 0.0, digits);
  return *unit == 0 ? number : number + u' ' + QLatin1String(unit);
}

std::vector<Line> linesOf(const TakeFigures& f) {
  return {{TakeInformation::tr("Integrated loudness"), figure(f.integratedLufs, 2, "LUFS")},
          {TakeInformation::tr("Loudness range"), figure(f.rangeLu, 2, "LU")},
          {TakeInformation::tr("Momentary, at most"), figure(f.momentaryMaxLufs, 2, "LUFS")},
          {TakeInformation::tr("Short-term, at most"), figure(f.shortTermMaxLufs, 2, "LUFS")},
          {TakeInformation::tr("True peak"), figure(f.truePeakDbtp, 2, "dBTP")},
          {TakeInformation::tr("Sample peak"), figure(f.samplePeakDbfs, 2, "dBFS")},
          {TakeInformation::tr("Correlation"), figure(f.correlation, 3, "")},
          {TakeInformation::tr("Balance"), figure(f.balanceDb, 2, "dB")}};
}

// As assistive software reads it.
QString plainValue(const QTreeWidgetItem& line) {
  const QString plain = line.data(1, Qt::AccessibleTextRole).toString();
  return line.text(1).isEmpty() || plain.isEmpty() ? line.text(1) : plain;
}

}  // namespace

TakeInformation::TakeInformation(Subject subject, QWidget* parent)
    : DialogWindow(parent), _subject(std::move(subject)) {
  setAttribute(Qt::WA_DeleteOnClose);
  layOut();
  connect(&_timer, &QTimer::timeout, this, &TakeInformation::collect);
  read();
}

void TakeInformation::initWindowUI() {
  DialogWindow::initWindowUI(tr("Information"));
}

void TakeInformation::layOut() {
  QLabel* const name = label({}, "title");
  showName(*name, PathText::textOf(_subject.file.filename()),
           Appearance::lineWidth(kTreeSize.width(), font()));
  _tree = new QTreeWidget(this);
  _tree->setColumnCount(2);
  _tree->setHeaderHidden(true);
  _tree->setRootIsDecorated(false);
  _tree->setFrameShape(QFrame::NoFrame);
  _tree->setAccessibleName(tr("Information"));
  _tree->setMinimumSize(kTreeSize);
  _tree->header()->resizeSection(0, Appearance::lineWidth(kFieldWidth, font()));
  auto* const copy = new QPushButton(tr("Copy"), this);
  auto* const close = new QPushButton(tr("Close"), this);
  copy->setAutoDefault(false);
  close->setDefault(true);
  connect(copy, &QPushButton::clicked, this, &TakeInformation::copy);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* const row = new QHBoxLayout;
  row->addWidget(copy);
  row->addStretch();
  row->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargins);
  column->setSpacing(12);
  column->addWidget(name);
  column->addWidget(_tree, 1);
  column->addLayout(row);
}

void TakeInformation::read() {
  addGroup(tr("File"), {{tr("Reading…"), {}}});
  const auto work = [this, file = _subject.file]() -> Errand::Outcome {
    return [this, facts = std::make_shared<const TakeFacts>(file)] { showFacts(*facts); };
  };
  const auto failed = [this](const std::string& why) { showNote(Reason::text(why)); };
  if (!_errand.begin(work, failed)) showNote(tr("No thread can be had to read it."));
}

void TakeInformation::showNote(const QString& note) {
  _tree->clear();
  addGroup(tr("File"), {{tr("Note"), note}});
}

void TakeInformation::showFacts(const TakeFacts& facts) {
  _tree->clear();
  addGroup(tr("File"), facts.general());
  if (!facts.chunks().empty()) addGroup(tr("Chunks"), facts.chunks());
  if (!facts.fields().empty()) addGroup(tr("Broadcast extension"), facts.fields());
  if (!facts.isRecording()) return emit complete();
  const QString gain = NumberText::printed(NumberText::of(_subject.gain));
  _figures = addGroup(tr("Figures at %1° and %2 dB").arg(_subject.width).arg(gain),
                      {{tr("Measuring…"), {}}});
  measure(*facts.reader());
}

void TakeInformation::measure(const WaveFileReader& reader) {
  const auto& known = _subject.analysis;
  if (known && known->isComplete() && known->isOf(reader, 0, reader.frameCount())) {
    return showFigures();
  }
  TakeAnalyzer::Options options;
  options.workersMemory = TakeAnalyzer::kSmallMemory;
  options.keepsBins = false;
  _analyzer = std::make_unique<TakeAnalyzer>(reader, options);
  _timer.start(kLook);
}

void TakeInformation::collect() {
  if (!_analyzer->isFinished()) return;
  _timer.stop();
  _subject.analysis = _analyzer->wait();
  const QString failure = Reason::text(_analyzer->failure());
  _analyzer.reset();
  if (_subject.analysis) return showFigures();
  _figures->child(0)->setText(0, tr("Note"));
  _figures->child(0)->setText(1, failure);
  emit complete();
}

void TakeInformation::showFigures() {
  delete _figures->takeChild(0);
  for (const Line& line : linesOf(_subject.analysis->at(_subject.width, _subject.gain))) {
    auto* const item = new QTreeWidgetItem(_figures, {line.name, NumberText::printed(line.value)});
    item->setData(1, Qt::AccessibleTextRole, line.value);
  }
  emit complete();
}

QTreeWidgetItem* TakeInformation::addGroup(const QString& title, const std::vector<Line>& lines) {
  auto* const group = new QTreeWidgetItem(_tree, {title});
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  group->setFont(0, bold);
  group->setFirstColumnSpanned(true);
  group->setData(1, Qt::AccessibleTextRole, title);  // assistive software has two cells in it
  for (const Line& line : lines) {
    auto* const item = new QTreeWidgetItem(group, {line.name, line.value});
    if (line.value.isEmpty()) item->setData(1, Qt::AccessibleTextRole, QStringLiteral("–"));
    item->setToolTip(1, PlainText::of(line.value));
  }
  group->setExpanded(true);
  return group;
}

QString TakeInformation::text() const {
  QString text = PathText::textOf(_subject.file) + u'\n';
  for (int i = 0; i < _tree->topLevelItemCount(); ++i) {
    const QTreeWidgetItem& group = *_tree->topLevelItem(i);
    text += group.text(0) + u'\n';
    for (int row = 0; row < group.childCount(); ++row) {
      const QTreeWidgetItem& line = *group.child(row);
      text += QStringLiteral("  %1: %2\n").arg(line.text(0), plainValue(line));
    }
  }
  return text;
}

void TakeInformation::copy() const {
  QGuiApplication::clipboard()->setText(text());
}
