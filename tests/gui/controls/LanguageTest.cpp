// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Language.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QLocale>

#include "controls/CorrelationBar.h"
#include "controls/NumberText.h"
#include "controls/PeakHold.h"
#include "controls/Reason.h"
#include "controls/TimeRuler.h"
#include "support/EnvironmentVariable.h"

namespace {

class LanguageTest : public testing::Test {
 protected:
  ~LanguageTest() override { Language::use(QStringLiteral("en")); }

  static QString ok() { return QCoreApplication::translate("Alert", "Ok"); }
};

TEST_F(LanguageTest, DearestWishThatThereIsCounts) {
  EXPECT_EQ(Language::best({"de-AT"}), "de");
  EXPECT_EQ(Language::best({"fr_CA", "de"}), "fr");
  EXPECT_EQ(Language::best({"it-IT", "es-419"}), "es");
  EXPECT_EQ(Language::best({"ja"}), "ja");
  EXPECT_EQ(Language::best({"zh-Hans-SG"}), "zh_CN");
  EXPECT_EQ(Language::best({"en-GB", "de"}), "en");
}

TEST_F(LanguageTest, EnglishIsForAllOthers) {
  for (const char* const none : {"it", "zh-TW", "zh-Hant-HK", "C", ""}) {
    EXPECT_EQ(Language::best({none}), "en") << none;
  }
  EXPECT_EQ(Language::best({}), "en");
}

TEST_F(LanguageTest, InAPlainDesktopNothingIsTranslated) {
  const EnvironmentVariable all("LC_ALL", "C.UTF-8");
  const EnvironmentVariable wish("LANGUAGE", "de:fr");
  EXPECT_EQ(Language::best(Language::wishes()), "en");
}

TEST_F(LanguageTest, DesktopIsAskedWhereNothingElseIsSaid) {
  const EnvironmentVariable all("LC_ALL", "fr_FR.UTF-8");
  const EnvironmentVariable wish("LANGUAGE", "");
  EXPECT_EQ(Language::best(Language::wishes()), "fr");
  const EnvironmentVariable other("LANGUAGE", "es:de");
  EXPECT_EQ(Language::best(Language::wishes()), "es");
}

TEST_F(LanguageTest, EachHasTextsOfItsOwnAndOfTheToolkit) {
  for (const QString& tag : Language::all()) {
    Language::use(tag);
    const bool isEnglish = tag == u"en";
    EXPECT_EQ(QCoreApplication::translate("IntroductionVC", "Open a folder") == u"Open a folder",
              isEnglish)
        << tag.toStdString();
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel") == u"Cancel", isEnglish)
        << tag.toStdString();
  }
}

TEST_F(LanguageTest, CanBeChanged) {
  Language::use(QStringLiteral("es"));
  EXPECT_EQ(ok(), "Aceptar");
  Language::use(QStringLiteral("en"));
  EXPECT_EQ(ok(), "Ok");
}

TEST_F(LanguageTest, PluralFormsAreThoseOfTheLanguage) {
  const auto places = [](int count) {
    return QCoreApplication::translate("ExportLevels", "Would clip in 24 bit at %n place(s)",
                                       nullptr, count);
  };
  Language::use(QStringLiteral("en"));
  EXPECT_EQ(places(1), "Would clip in 24 bit at 1 place");
  EXPECT_EQ(places(3), "Would clip in 24 bit at 3 places");
  Language::use(QStringLiteral("de"));
  EXPECT_EQ(places(1), "Würde bei 24 Bit an 1 Stelle übersteuern");
  EXPECT_EQ(places(3), "Würde bei 24 Bit an 3 Stellen übersteuern");
  Language::use(QStringLiteral("ja"));
  EXPECT_EQ(places(1), "24 ビットでは 1 か所でクリップします");
}

TEST_F(LanguageTest, NumbersHaveTheDecimalSignOfTheCountry) {
  PeakHold peak;
  peak.add(0.5);
  for (const QString& tag : Language::all()) {
    Language::use(tag);
    const bool hasComma = tag == u"de" || tag == u"es" || tag == u"fr";
    const std::string sign = hasComma ? "," : ".";
    EXPECT_EQ(NumberText::of(-23.04, 1).toStdString(), "-23" + sign + "0");
    EXPECT_EQ(NumberText::of(44.1).toStdString(), "44" + sign + "1");
    EXPECT_EQ(NumberText::of(12345678.5, 1).toStdString(), "12345678" + sign + "5");
    EXPECT_EQ(peak.text().toStdString(), "-6" + sign + "0");
    EXPECT_EQ(CorrelationBar::text(0.25).toStdString(), "+0" + sign + "25");
    EXPECT_EQ(CorrelationBar::text(0.0).toStdString(), "0" + sign + "00");
    EXPECT_EQ(TimeRuler::text(62.5, 0.5).toStdString(), "01:02" + sign + "5");
  }
}

TEST(NumberText, IsPrintedWithAMinusSign) {
  EXPECT_EQ(NumberText::printed("-23.1 LUFS, -0.5").toStdString(), "−23.1 LUFS, −0.5");
  EXPECT_EQ(NumberText::printed("True-Peak 3-").toStdString(), "True-Peak 3-");
  EXPECT_EQ(NumberText::printed("").toStdString(), "");
  EXPECT_EQ(NumberText::plain("−23.1 LUFS, −0.5").toStdString(), "-23.1 LUFS, -0.5");
}

TEST_F(LanguageTest, EitherDecimalSignCanBeTypedInEveryLanguage) {
  for (const QString& tag : Language::all()) {
    Language::use(tag);
    for (const char* const typed : {"-23.5", "-23,5", "−23,5", " -23.5 "}) {
      EXPECT_EQ(NumberText::typed(typed), -23.5) << tag.toStdString() << typed;
    }
    for (const char* const none : {"", "x", "1.2.3", "--1"}) {
      EXPECT_EQ(NumberText::typed(none), std::nullopt) << none;
    }
  }
}

TEST_F(LanguageTest, ReasonsAreToldInTheLanguageOfTheWindow) {
  Language::use(QStringLiteral("de"));
  EXPECT_EQ(Reason::text(std::string("no data chunk")), "kein Daten-Chunk");
  EXPECT_EQ(Reason::text(std::string("The source cannot be read: No space left on device")),
            "Die Quelle ist nicht lesbar: Kein Platz mehr auf dem Gerät");
  EXPECT_EQ(Reason::text(std::string("The broadcast extension has 12 bytes, fewer than 602")),
            "Die Broadcast-Erweiterung hat 12 Byte, weniger als 602");
  EXPECT_EQ(Reason::text(std::string("The take cannot be read: Input/output error")),
            "Der Take ist nicht lesbar: Ein-/Ausgabefehler");
  EXPECT_EQ(Reason::text(std::string("1 byte of half a frame at the end")),
            "1 Byte eines halben Frames am Ende");
  EXPECT_EQ(Reason::text(std::string("3 bytes of half a frame at the end")),
            "3 Byte eines halben Frames am Ende");
  EXPECT_EQ(Reason::text(std::string("4 channels of 16-bit samples with format tag 1 do not decode "
                                     "to useful sound; the recorder writes 2 channels, 24-bit "
                                     "integer or 32-bit float (tag 3)")),
            "4 Kanäle mit 16-Bit-Samples im Format 1 ergeben keinen brauchbaren Ton; der Rekorder "
            "schreibt 2 Kanäle, 24 Bit ganzzahlig oder 32 Bit Float (Format 3)");
  EXPECT_EQ(Reason::text(std::string("Anything else (%1)")), "Anything else (%1)");
}

TEST_F(LanguageTest, ReasonStandsBehindTheNameOfAFile) {
  Language::use(QStringLiteral("de"));
  EXPECT_EQ(Reason::text(std::string("ascmhl_chain.xml: it is no such list")),
            "ascmhl_chain.xml: es ist keine solche Liste");
  EXPECT_EQ(Reason::text(std::string("The manifest cannot be read: ascmhl: Permission denied")),
            "Das Manifest ist nicht lesbar: ascmhl: Keine Berechtigung");
  EXPECT_EQ(Reason::text(std::string("Odd: %2.mhl: it is missing")), "Odd: %2.mhl: fehlt");
  EXPECT_EQ(Reason::text(std::string("a.mhl: is another matter")), "a.mhl: is another matter");
  Language::use(QStringLiteral("fr"));
  EXPECT_EQ(Reason::text(std::string("a.mhl: it cannot be read")),
            "a.mhl\u00a0: il ne peut pas être lu");
}

TEST_F(LanguageTest, WhatIsCaughtInAReasonIsNoPlaceholder) {
  EXPECT_EQ(Reason::text(std::string("Not a recording of the TARN J4: its originator is \"%1\"")),
            "Not a recording of the TARN J4: its originator is \"%1\"");
  EXPECT_EQ(Reason::text(std::string("The source cannot be read: %1")),
            "The source cannot be read: %1");
}

TEST_F(LanguageTest, EveryReasonIsToldInEveryLanguageAndAsItIsInEnglish) {
  for (const QString& tag : Language::all()) {
    Language::use(tag);
    for (const QString& reason : Reason::known()) {
      const bool isSame = Reason::text(QString(reason)) == reason;
      EXPECT_EQ(isSame, tag == u"en") << tag.toStdString() << ": " << reason.toStdString();
    }
  }
}

}  // namespace
