// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/BatchDialog.h"

#include <QFontMetrics>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QStringList>
#include <QVBoxLayout>
#include <QtMath>
#include <algorithm>
#include <utility>

#include "controls/Appearance.h"
#include "controls/ClockText.h"
#include "controls/NumberText.h"
#include "controls/PlainText.h"
#include "controls/Reason.h"
#include "dialogs/ExportFacts.h"
#include "dialogs/PathText.h"
#include "export/ChunkSizes.h"

namespace {

constexpr int kBatchWidth = 360;
constexpr int kRefusedLines = 5;
constexpr int kRefusedMargin = 4;  // beside the text of a row, at most

// Why a take is not exported.
QString itemReason(const BatchPlan::Item& item) {
  switch (item.fate) {
    case BatchPlan::Fate::Exists:
      return BatchDialog::tr("%1 exists").arg(PathText::nameOf(item.order.target));
    case BatchPlan::Fate::IsTake:
      return BatchDialog::tr("%1 is itself among the takes")
          .arg(PathText::nameOf(item.order.target));
    case BatchPlan::Fate::HasSameName:
      if (item.other.empty()) {
        return BatchDialog::tr("%1 is about to be written")
            .arg(PathText::nameOf(item.order.target));
      }
      return BatchDialog::tr("%1 is to be the export of %2")
          .arg(PathText::nameOf(item.order.target), PathText::nameOf(item.other));
    default:
      return Reason::text(item.why);
  }
}

}  // namespace

BatchDialog::BatchDialog(Takes takes, QWidget* parent)
    : DialogWindow(parent), _takes(std::move(takes)) {
  layOut();
  connect(this, &QDialog::finished, this, &QObject::deleteLater);
  connect(_choices, &BatchChoices::changed, this, &BatchDialog::choose);
  connect(&_checks, &BatchChecks::changed, this, &BatchDialog::tell);
  if (!_takes.files.empty()) _choices->setStart(_takes.files.front().parent_path());
  _checks.read(_takes.files, _takes.recall);
  choose();
}

void BatchDialog::initWindowUI() {
  DialogWindow::initWindowUI(tr("Export"));
}

void BatchDialog::layOut() {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargins);
  column->setSpacing(8);
  const int count = static_cast<int>(_takes.files.size());
  column->addWidget(label(
      count == 1 ? PathText::nameOf(_takes.files.front()) : tr("Export %n takes", nullptr, count),
      "title"));
  column->addLayout(facts());
  column->addSpacing(8);
  _choices = new BatchChoices(this);
  column->addWidget(_choices);
  column->addSpacing(4);
  _refusedTitle = label({}, "heading");
  _refused = new QListWidget(this);
  _refused->setAccessibleName(tr("Takes that will not be exported"));
  _refused->setTextElideMode(Qt::ElideMiddle);
  _refused->setWordWrap(true);
  _refused->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  _refusedTitle->hide();
  _refused->hide();
  column->addWidget(_refusedTitle);
  column->addWidget(_refused);
  _warning = label({}, "warning");
  column->addWidget(_warning);
  column->addSpacing(8);
  column->addLayout(buttons());
  setMinimumWidth(Appearance::lineWidth(kBatchWidth, font()) + kMarginsAcross);
}

QLayout* BatchDialog::facts() {
  auto* const form = new QFormLayout;
  form->setHorizontalSpacing(24);
  form->setVerticalSpacing(4);
  const auto addFact = [this, form](const QString& name, const QString& text) {
    QLabel* const caption = label(name, "dim");
    QLabel* const value = label(text);
    caption->setBuddy(value);
    form->addRow(caption, value);
    return value;
  };
  _length = addFact(tr("Length"), {});
  _width = addFact(tr("Stereo width"), {});
  _gain = addFact(tr("Gain"), {});
  _room = addFact(tr("Room"), {});
  return form;
}

QLayout* BatchDialog::buttons() {
  auto* const cancel = new QPushButton(tr("Cancel"), this);
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  _export = new QPushButton(this);
  _export->setObjectName(QStringLiteral("export"));
  _export->setProperty("primary", true);
  _export->setDefault(true);
  connect(_export, &QPushButton::clicked, this, &BatchDialog::order);
  auto* const row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(cancel);
  row->addWidget(_export);
  return row;
}

void BatchDialog::choose() {
  BatchWish wish;
  wish.how.gain = _takes.gain;
  wish.how.angle = _takes.angle;
  wish.awaited = _takes.awaited;
  _choices->putInto(wish);
  _checks.plan(wish);
  tell();
}

// What was refused stays on the screen until it is known anew.
void BatchDialog::tell() {
  const auto isRemembered = [](const BatchTake& take) { return take.remembered.has_value(); };
  if (_checks.takes() && std::ranges::any_of(*_checks.takes(), isRemembered)) {
    _choices->offerRemembered();
  }
  showFacts();
  if (_checks.plan()) showRefused();
  const QString warning = this->warning();
  _warning->setText(warning);
  _warning->setHidden(warning.isEmpty());
  const auto& plan = _checks.plan();
  const std::size_t count = plan ? plan->orders().size() : 0;
  _export->setText(count > 0 ? tr("Export %1").arg(count) : tr("Export"));
  _export->setEnabled(count > 0 && _choices->isWhole());
  fixSize();
}

void BatchDialog::showFacts() {
  _length->setText(lengthText());
  _width->setText(widthText());
  showFigure(*_gain, gainText());
  _room->setText(roomText());
}

QString BatchDialog::lengthText() const {
  if (!_checks.takes()) return QStringLiteral("…");
  double seconds = 0;
  for (const BatchTake& take : *_checks.takes()) seconds += take.seconds;
  return ClockText::of(seconds);
}

QString BatchDialog::widthText() const {
  const int width = WaveFileReader::wholeAngle(_takes.angle);
  if (!_choices->isAsRemembered()) return tr("%1° for all").arg(width);
  return tr("As remembered, else %1").arg(QStringLiteral("%1°").arg(width));
}

QString BatchDialog::gainText() const {
  if (!_choices->isToLoudness()) {
    ExportFacts facts;
    facts.gain = _takes.gain;
    const QString gain = facts.gainText(_choices->isNormalized());
    const bool isRecalled = _choices->isAsRemembered() && !_choices->isNormalized();
    return isRecalled ? tr("As remembered, else %1").arg(gain) : gain;
  }
  const auto lufs = _choices->lufs();
  return lufs ? tr("To %1 LUFS").arg(NumberText::of(*lufs)) : QStringLiteral("–");
}

QString BatchDialog::roomText() const {
  const auto& plan = _checks.plan();
  if (!plan) return QStringLiteral("…");
  QString needed = ExportFacts::textOf(plan->needed());
  const BatchPlan::Room* const room = plan->tightest();
  if (room == nullptr || !room->free) return needed;
  return tr("%1, of %2 that are free").arg(needed, ExportFacts::textOf(*room->free));
}

QString BatchDialog::warning() const {
  const std::string& failure = _checks.failure();
  if (!failure.empty()) return tr("The takes cannot be looked at: %1.").arg(Reason::text(failure));
  if (_choices->isToLoudness() && !_choices->lufs()) {
    return tr("A loudness is a number from −70 to 0.");
  }
  return _checks.plan() ? warningOf(*_checks.plan()) : QString();
}

QString BatchDialog::warningOf(const BatchPlan& plan) const {
  QStringList lines;
  const BatchPlan::Room* const room = plan.tightest();
  if (room != nullptr && room->free && *room->free < room->needed) {
    lines << tr("There is too little room: the last of them will not be written");
  }
  const auto isNoise = [](const BatchTake& take) { return take.isNoise; };
  if (std::ranges::any_of(*_checks.takes(), isNoise)) {
    lines << tr(
        "Samples of some of them export as noise: the recorder writes 24 bits or 32-bit "
        "float");
  }
  const auto orders = plan.orders();
  const auto isLong = [](const ExportOrder& order) { return ChunkSizes::isRf64(order.size); };
  if (std::ranges::any_of(orders, isLong)) {
    lines << tr("Over 4 GiB: written as RF64, which not every program reads");
  }
  return lines.join(u'\n');
}

void BatchDialog::showRefused() {
  _refused->clear();
  for (const BatchPlan::Item& item : _checks.plan()->items) {
    if (item.fate != BatchPlan::Fate::Export) addRefused(item);
  }
  const int count = _refused->count();
  _refusedTitle->setText(count == 1 ? tr("One will not be exported:")
                                    : tr("%n will not be exported:", nullptr, count));
  _refusedTitle->setHidden(count == 0);
  _refused->setHidden(count == 0);
  const int line = count == 0 ? 0 : _refused->sizeHintForRow(0);
  _refused->setFixedHeight(std::min(refusedLines(), kRefusedLines) * line +
                           2 * _refused->frameWidth());
}

// Wrapped as in the narrowest dialog, beside a scroll bar.
int BatchDialog::refusedLines() const {
  const int beside = _refused->verticalScrollBar()->sizeHint().width() +
                     2 * (_refused->frameWidth() + kRefusedMargin);
  const QRect most(0, 0, Appearance::lineWidth(kBatchWidth, font()) - beside, QWIDGETSIZE_MAX);
  const QFontMetrics metrics = _refused->fontMetrics();
  int lines = 0;
  for (int row = 0; row < _refused->count(); ++row) {
    const QRect text = metrics.boundingRect(most, Qt::TextWordWrap, _refused->item(row)->text());
    lines += qCeil(static_cast<double>(text.height()) / metrics.lineSpacing());
  }
  return lines;
}

void BatchDialog::addRefused(const BatchPlan::Item& item) {
  const QString line = tr("%1: %2").arg(PathText::nameOf(item.order.source), itemReason(item));
  auto* const row = new QListWidgetItem(line, _refused);
  row->setToolTip(PlainText::of(line));
}

void BatchDialog::order() {
  const BatchPlan& plan = *_checks.plan();
  accept();
  emit ordered(plan.orders(), plan.atOnce);
}
