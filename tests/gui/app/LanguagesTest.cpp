// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTranslator>
#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "CutTexts.h"
#include "EveryDialog.h"
#include "app/StageArea.h"
#include "controls/Appearance.h"
#include "controls/Language.h"
#include "dialogs/DialogWindow.h"
#include "dialogs/QueueModel.h"

namespace {

/// Marks every text that is asked for: what is shown without a mark has not been asked for.
class MarkingTranslator : public QTranslator {
 public:
  [[nodiscard]] bool isEmpty() const override { return false; }
  [[nodiscard]] QString translate(const char* /*context*/, const char* text, const char* /*about*/,
                                  int /*count*/) const override {
    return u'⟦' + QString::fromUtf8(text) + u'⟧';
  }
};

class AnyLanguage : public EveryDialog {
 protected:
  ~AnyLanguage() override {
    end();
    Appearance::setTextScale(*qApp, 1);
    Language::use(QStringLiteral("en"));
  }
};

class Languages : public AnyLanguage, public testing::WithParamInterface<const char*> {
 protected:
  Languages() { Language::use(QLatin1String(GetParam())); }

  static void expectNothingCut(QWidget& shown, QSize most = {1280, 720}) {
    EXPECT_FALSE(shown.grab().isNull());
    EXPECT_EQ(CutTexts::in(shown).join(u'\n').toStdString(), "")
        << shown.metaObject()->className() << " " << shown.windowTitle().toStdString();
    const QSize room = isScrolled(shown) ? shown.screen()->availableSize() : most;
    EXPECT_EQ(shown.size().boundedTo(room), shown.size())
        << shown.metaObject()->className() << " " << shown.width() << " x " << shown.height();
  }
  /// A dialog that is larger than the screen of these tests, which is a small one.
  static bool isScrolled(const QWidget& shown) {
    return qobject_cast<const DialogWindow*>(&shown) != nullptr &&
           shown.findChild<QScrollArea*>() != nullptr;
  }
  void enlargeText() {
    view().resize(kCommonScreen);
    Appearance::setTextScale(*qApp, 2);
    settle();
  }
  /// What somebody sees of the window in an evening, one after the other.
  void forEachState(const std::function<void()>& look) {
    using State = std::pair<const char*, std::function<void()>>;
    const std::vector<State> states = {
        {"nothing is open", [this] { startOnThreeTakes(); }},
        {"no recorder can be found", [this] { view().device->showUnavailable(kReason); }},
        {"a take is open", [this] { open("R0001.WAV"); }},
        {"there is a recorder", [this] { plugInAnew(); }},
        {"it is a simulated one", [this] { view().device->lblSimulated->show(); }},
        {"there is a loop", [this] { makeLoop(); }},
        {"meters by its rule", [this] { view().menu->actionMetersByRule->setChecked(true); }},
        {"all takes are selected",
         [this] {
           view().browser->tableFile->selectRows({0, 1, 2}, 0);
         }},
        {"the recorder has gone", [this] { pullOut(); }}};
    for (const auto& [name, enter] : states) {
      const testing::ScopedTrace trace(__FILE__, __LINE__, name);
      enter();
      settle();
      look();
    }
  }

  static constexpr QSize kCommonScreen{1440, 860};

 private:
  void startOnThreeTakes() {
    for (const char* const name : {"R0001.WAV", "R0002.WAV", "R0003.WAV"}) take(name);
    startOnTakes();
  }
  void plugInAnew() {
    view().device->showUnavailable({});
    plugIn();
  }
  void makeLoop() {
    FileList* const list = view().browser->tableFile;
    QTest::keyClick(list, Qt::Key_L);
    play(kLoop);
    QTest::keyClick(list, Qt::Key_L);
    ASSERT_TRUE(controller().take().loop().has_value());
  }

  static constexpr int kLoop = 500;  // ms
  static inline const QString kReason =
      QStringLiteral("The ALSA sequencer is not there (No such file or directory).");
};

TEST_P(Languages, NothingIsCutInTheWindow) {
  forEachState([this] { expectNothingCut(view()); });
}

TEST_P(Languages, UsualWindowIsNotScrolled) {
  forEachState([this] {
    ASSERT_EQ(view().size(), WindowController::kSize);
    const QScrollArea& area = *view().findChild<StageArea*>();
    EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0);
  });
}

TEST_P(Languages, NothingIsCutInADialog) {
  startWithAll();
  forEachDialog([](QWidget& dialog) { expectNothingCut(dialog); });
}

TEST_P(Languages, NothingIsCutInTheWindowInTextOfTwiceTheSize) {
  Appearance::setTextScale(*qApp, 2);
  forEachState([this] {
    view().resize(kCommonScreen);
    settle();
    expectNothingCut(view(), kCommonScreen);
  });
}

TEST_P(Languages, NothingIsCutInADialogInTextOfTwiceTheSize) {
  startWithAll();
  enlargeText();
  forEachDialog([](QWidget& dialog) { expectNothingCut(dialog, kCommonScreen); });
}

// The name of a take is shortened to make room for it, as far as there is room; why one failed may
// be long, and is in the tool tip.
TEST_P(Languages, StateOfAnExportIsReadWhole) {
  constexpr double kMostOfARow = 0.6;
  startOnTakes();
  const std::unique_ptr<QWidget> panel(queuePanel());
  panel->show();
  settle();
  auto& list = *panel->findChild<QListView*>();
  for (int row = 0; row < list.model()->rowCount(); ++row) {
    const QModelIndex index = list.model()->index(row, 0);
    if (index.data(QueueModel::kFailedRole).toBool()) continue;
    const QString state = index.data(QueueModel::kStateRole).toString();
    EXPECT_LE(list.fontMetrics().horizontalAdvance(state),
              kMostOfARow * (list.visualRect(index).width() - 20))
        << state.toStdString();
  }
}

TEST_P(Languages, KeysOfAMenuDiffer) {
  take("R0001.WAV");
  startOnTakes();
  QList<QMenu*> menus = view().menu->findChildren<QMenu*>();
  menus << view().menu << qobject_cast<QMenu*>(rowMenu(1));
  for (const QMenu* const menu : menus) {
    std::set<QChar> keys;
    for (const QAction* const action : menu->actions()) {
      static const QRegularExpression kKey(QStringLiteral("&([^&])"));
      const auto match = kKey.match(action->text());
      if (!match.hasMatch()) continue;
      EXPECT_TRUE(keys.insert(match.captured(1)[0].toLower()).second)
          << action->text().toStdString();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Each, Languages, testing::Values("de", "en", "es", "fr", "ja", "zh_CN"));

/// What rows show and tell.
void addRows(QStringList& all, const QAbstractItemModel& model, const QModelIndex& parent = {}) {
  for (int row = 0; row < model.rowCount(parent); ++row) {
    for (int column = 0; column < model.columnCount(parent); ++column) {
      const QModelIndex index = model.index(row, column, parent);
      for (const int role : {int{Qt::DisplayRole}, int{Qt::ToolTipRole},
                             int{Qt::AccessibleTextRole}, int{Qt::AccessibleDescriptionRole}}) {
        all << index.data(role).toString();
      }
    }
    addRows(all, model, model.index(row, 0, parent));
  }
}

/// What a widget shows and tells.
QStringList said(const QWidget& widget) {
  QStringList all = {widget.windowTitle(), widget.toolTip(), widget.accessibleName(),
                     widget.accessibleDescription()};
  if (const auto* const label = qobject_cast<const QLabel*>(&widget)) all << label->text();
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
    all << button->text();
  for (const QAction* const action : widget.actions()) all << action->text();
  if (const auto* const popup = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < popup->count(); ++i) all << popup->itemText(i);
  }
  const auto* const rows = qobject_cast<const QAbstractItemView*>(&widget);
  if (rows != nullptr && rows->model() != nullptr) addRows(all, *rows->model());
  return all;
}

/// What of it has been asked for in no language: names, units and keys aside.
QStringList unasked(const QString& text) {
  static const QRegularExpression kAsked(QStringLiteral("⟦[^⟦⟧]*⟧"));
  static const QRegularExpression kNames(QStringLiteral(
      "TARN J4( Mixdeck)?|R[0-9]{4}[^ "
      "]*|LUFS|LU|dBTP|dBFS|dB|Ctrl|Shift|Space|Left|Right|Up|Down|Home|End|"
      "qt_[a-z_]*|GB|MB|GiB|[0-9][.0-9]* [kMG]?B|/[^ ]*|\\b[A-Z0-9]\\b|\\bF1\\b|mixdeck-[^ ]*|"
      "\\b(Qt|alsa-lib|SQLite|Linux) [^\n]*"));
  // As the broadcast extension and the chunks of a file have them in every language.
  static const QRegularExpression kFields(QStringLiteral(
      "^(Description|Originator|OriginatorReference|OriginationDate|OriginationTime|TimeReference|"
      "Version|UniqueMaterialIdentifier|Reserved|CodingHistory|REF|UMID|MSRAW=ON|bext|fmt "
      "|data|JUNK)$"));
  if (kFields.match(text).hasMatch()) return {};
  QString rest = text;
  for (QString before; rest != before;) {
    before = rest;
    rest.remove(kAsked);
  }
  rest.remove(kNames);
  static const QRegularExpression kWords(QStringLiteral("\\p{L}{2,}"));
  return kWords.match(rest).hasMatch() ? QStringList{text} : QStringList{};
}

void expectAsked(const QWidget& window) {
  QStringList all;
  QList<QWidget*> widgets = window.findChildren<QWidget*>();
  for (const QString& text : said(window)) all << unasked(text);
  for (const QWidget* const widget : widgets) {
    for (const QString& text : said(*widget)) all << unasked(text);
  }
  EXPECT_EQ(all.join(u'\n').toStdString(), "") << window.metaObject()->className();
}

TEST(Unasked, IsWhatHasWordsWithoutAMark) {
  for (const char* const fine :
       {"⟦Export⟧", "−23.0 LUFS", "R0001.WAV", "⟦⟦Back⟧ 1 s⟧\tCtrl+E", ""}) {
    EXPECT_TRUE(unasked(QString::fromUtf8(fine)).isEmpty()) << fine;
  }
  for (const char* const bare : {"Export", "⟦Export⟧ now", "R0001.WAV not found"}) {
    EXPECT_FALSE(unasked(QString::fromUtf8(bare)).isEmpty()) << bare;
  }
}

class Marked : public AnyLanguage {
 protected:
  Marked() { QCoreApplication::installTranslator(&_translator); }
  ~Marked() override {
    end();
    QCoreApplication::removeTranslator(&_translator);
  }

 private:
  MarkingTranslator _translator;
};

TEST_F(Marked, EveryTextOfTheWindowIsAskedFor) {
  startWithAll();
  expectAsked(view());
  pullOut();
  settle();
  expectAsked(view());
}

TEST_F(Marked, EveryTextOfADialogIsAskedFor) {
  startWithAll();
  forEachDialog(expectAsked);
}

}  // namespace
