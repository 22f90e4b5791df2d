// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The ruler over a waveform as it is seen: what its columns of pixels hold is read from pictures,
// and nothing is taken from how it was laid out.

#include <gmock/gmock.h>

#include <QImage>
#include <algorithm>
#include <vector>

#include "Hands.h"
#include "controls/Colors.h"
#include "controls/WaveformViewer.h"

namespace {

using testing::IsEmpty;

/// Columns of pixels side by side, the last included.
struct Columns {
  int first;
  int last;

  [[nodiscard]] bool meets(const Columns& other) const {
    return first <= other.last && other.first <= last;
  }
  [[nodiscard]] Columns wider(int by) const { return {first - by, last + by}; }
};

class Ruler : public testing::Test {
 protected:
  enum class Column { Empty, Mark, Text, Cover };
  static constexpr int kWidth = 618;
  static constexpr int kFree = 2;  // a line of pixels over all letters and digits
  static constexpr int kTop = 4;   // those that hold a part of all that is in the ruler
  static constexpr int kEnd = 12;
  static constexpr int kBetweenDigits = 5;
  static constexpr int kClose = 8;
  static constexpr int kSoftEdge = 2;

  Ruler() {
    Hands::show(viewer, {kWidth, 64});
    viewer.setLength(300);
    setFont(13);
  }

  void setFont(int pixels) {
    QFont font = viewer.font();
    font.setPixelSize(pixels);
    viewer.setFont(font);
  }

  static Column columnAt(const QImage& image, int x) {
    const auto is = [&](int y, const QColor& color) { return image.pixelColor(x, y) == color; };
    if (is(kFree, Colors::accent()) || is(kFree, Colors::ControlColor())) return Column::Cover;
    bool isMark = true;
    bool isEmpty = true;
    for (int y = kTop; y < kEnd; ++y) {
      isMark = isMark && (is(y, Colors::line()) || y == kEnd - 1);
      isEmpty = isEmpty && is(y, Colors::AppBG());
    }
    if (isEmpty) return Column::Empty;
    return isMark ? Column::Mark : Column::Text;
  }
  static std::vector<Column> columns(const QImage& image) {
    std::vector<Column> found;
    for (int x = 0; x < image.width(); ++x) found.push_back(columnAt(image, x));
    return found;
  }
  /// What has columns of a kind with at most so many others between two of them, but no mark.
  static std::vector<Columns> runs(const std::vector<Column>& all, Column kind, int most) {
    std::vector<Columns> found;
    int empty = most + 1;
    for (int x = 0; x < static_cast<int>(all.size()); ++x) {
      const Column here = all[static_cast<std::size_t>(x)];
      if (here == kind && empty > most) found.push_back({x, x});
      if (here == kind) found.back().last = x;
      empty = here == kind ? 0 : empty + (here == Column::Mark ? most + 1 : 1);
    }
    return found;
  }
  static std::vector<Columns> times(const std::vector<Column>& all) {
    return runs(all, Column::Text, kBetweenDigits);
  }
  static std::vector<Columns> marks(const std::vector<Column>& all) {
    return runs(all, Column::Mark, 0);
  }

  /// By a flag, whose letter may reach its upper edge, or a box.
  static std::vector<Columns> covered(const std::vector<Column>& all) {
    return runs(all, Column::Cover, kBetweenDigits);
  }

  QImage picture() { return Hands::picture(viewer, 1.0); }
  /// A time is seen as in another picture or, where something covers a part of it, not at all; one
  /// that has something close by may be either.
  void expectWholeOrNone(const QImage& plain, const Columns& time) {
    const QImage image = picture();
    const auto covers = covered(columns(image));
    const auto reach = [&](const Columns& at, int by) {
      return std::ranges::any_of(covers, [&](const Columns& it) { return it.wider(by).meets(at); });
    };
    bool isWhole = true;
    bool isGone = true;
    for (int x = time.first; x <= time.last; ++x) {
      if (reach({x, x}, kSoftEdge)) continue;
      for (int y = kTop; y < kEnd; ++y) {
        isWhole = isWhole && image.pixelColor(x, y) == plain.pixelColor(x, y);
        isGone = isGone && image.pixelColor(x, y) == Colors::AppBG();
      }
    }
    EXPECT_TRUE(reach(time, 0) ? isGone : isWhole || isGone) << time.first;
    EXPECT_TRUE(reach(time, kClose) || isWhole) << time.first;
    isGone ? ++gone : ++whole;
  }

  WaveformViewer viewer;
  int gone = 0;
  int whole = 0;
};

TEST_F(Ruler, TimesThatAFlagWouldCoverAreLeftOut) {
  const QImage plain = picture();
  const auto labels = times(columns(plain));
  ASSERT_GE(labels.size(), 3U);
  for (const Columns& label : {labels[0], labels[1]}) {
    for (int x = label.first - 16; x <= label.last + 16; ++x) {
      viewer.setMarks(LoopMarks::Marks{viewer.timeAt(x), viewer.timeAt(x + 250)});
      expectWholeOrNone(plain, label);
    }
  }
  EXPECT_GT(gone, 40);
  EXPECT_GT(whole, 20);
}

TEST_F(Ruler, AllTimesAreBackWithoutFlags) {
  const QImage plain = picture();
  const auto label = times(columns(plain)).at(1);
  viewer.setMarks(LoopMarks::Marks{viewer.timeAt(label.first + 5), 290});
  EXPECT_NE(picture(), plain);
  viewer.setMarks(std::nullopt);
  EXPECT_EQ(picture(), plain);
}

TEST_F(Ruler, TimesThatWhatThePointerReadsWouldCoverAreLeftOut) {
  const QImage plain = picture();
  for (const Columns& label : times(columns(plain))) {
    for (int x = 12; x < kWidth - 12; x += 7) {
      Hands::move(viewer, {static_cast<double>(x), 40});
      expectWholeOrNone(plain, label);
    }
  }
  EXPECT_GT(gone, 40);
  EXPECT_GT(whole, 40);
}

// A flag that is dragged is beside what the pointer reads, not under it.
TEST_F(Ruler, AFlagThatIsHeldIsSeenWhole) {
  viewer.setMarks(LoopMarks::Marks{viewer.timeAt(100), viewer.timeAt(300)});
  const auto free = covered(columns(picture()));
  ASSERT_EQ(free.size(), 2U);
  for (const Columns& flag : free) {
    Hands::move(viewer, {(flag.first + flag.last + 1) / 2.0, 6});
    const QImage image = picture();
    for (const int x : {flag.first, flag.last}) {
      for (int y = kTop; y < kEnd; ++y) EXPECT_EQ(image.pixelColor(x, y), Colors::accent()) << y;
    }
  }
}

class RulerInTheFont : public Ruler, public testing::WithParamInterface<int> {
 protected:
  RulerInTheFont() { setFont(GetParam()); }
  /// Whether a time of this ruler has no room to the right of a mark: it may be left out.
  static bool isAtTheEnd(const Columns& mark, const std::vector<Columns>& labels) {
    int widest = 0;
    for (const Columns& it : labels) widest = std::max(widest, it.last - it.first);
    return mark.last + 8 + widest > kWidth - 4;
  }
  /// Faults of the ruler as it is now: a mark without a time, or with one that touches something.
  std::vector<int> faults() {
    const auto all = columns(picture());
    const auto labels = times(all);
    std::vector<int> at;
    std::size_t missing = 0;
    for (const Columns& mark : marks(all)) {
      const auto right = std::ranges::count_if(labels, [&](const Columns& it) {
        return it.meets({mark.last + 3, mark.last + 6});
      });
      const auto left = std::ranges::count_if(labels, [&](const Columns& it) {
        return it.meets({mark.first - 6, mark.first - 3});
      });
      const auto near =
          std::ranges::count_if(labels, [&](const Columns& it) { return it.meets(mark.wider(2)); });
      leftOnes += left > 0 ? 1 : 0;
      if (right + left == 0 && isAtTheEnd(mark, labels))
        ++missing;
      else if (right + left != 1 || near != 0)
        at.push_back(mark.first);
    }
    for (std::size_t i = 1; i < labels.size(); ++i) {
      const bool isLast = i + 1 == labels.size() && isLeftOfItsMark(labels[i], marks(all));
      int& least = isLast ? leastAtTheEnd : leastBetween;
      least = std::min(least, labels[i].first - labels[i - 1].last);
    }
    if (!labels.empty() && labels.back().last > kWidth - 3) at.push_back(labels.back().last);
    if (labels.size() + missing != marks(all).size() || missing > 1) at.push_back(-1);
    leftOut += missing;
    return at;
  }
  static bool isLeftOfItsMark(const Columns& label, const std::vector<Columns>& marks) {
    return std::ranges::any_of(marks, [&](const Columns& it) {
      return label.meets({it.first - 6, it.first - 3});
    });
  }
  long leftOnes = 0;
  std::size_t leftOut = 0;
  int leastBetween = kWidth;  ///< between two times, in columns
  int leastAtTheEnd = kWidth;
};

// But for the last, where its time would stand close to the one before.
TEST_P(RulerInTheFont, EveryMarkHasItsTimeAtEveryZoom) {
  int marksSeen = 0;
  for (int i = 0; i < 90; ++i) {
    viewer.zoom(0.92, 309);
    viewer.scroll(i % 2 == 0 ? 31 : -17);
    const auto wrong = faults();
    EXPECT_THAT(wrong, IsEmpty()) << viewer.stretch().from() << " to " << viewer.stretch().to();
    marksSeen += static_cast<int>(marks(columns(picture())).size());
  }
  EXPECT_GT(marksSeen, 180);
  EXPECT_GT(leftOnes, 5) << "at the end";
  EXPECT_GT(leftOut, 5U) << "there too";
  EXPECT_GE(leastAtTheEnd, leastBetween - 3) << "as the others, but for the shape of digits";
}

TEST_P(RulerInTheFont, HoursHaveRoomForTheirTimes) {
  viewer.setLength(30'000);
  for (int i = 0; i < 90; ++i) {
    EXPECT_THAT(faults(), IsEmpty()) << viewer.stretch().from() << " to " << viewer.stretch().to();
    viewer.zoom(0.9, 550);
  }
}

// The lines of pixels that are looked at are those of these sizes.
INSTANTIATE_TEST_SUITE_P(Usual, RulerInTheFont, testing::Values(12, 13, 14));

}  // namespace
