// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/XmlReader.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// All that a document has, as one line; "!" where it is broken.
std::string readOut(const std::string& document) {
  XmlReader reader(document);
  std::string all;
  for (;;) {
    switch (reader.next()) {
      case XmlReader::Token::Start:
        all += "<" + std::string(reader.name()) + reader.attribute("a");
        break;
      case XmlReader::Token::End:
        all += ">" + std::string(reader.name());
        break;
      case XmlReader::Token::Text:
        all += "'" + reader.text() + "'";
        break;
      case XmlReader::Token::Done:
        return all;
      case XmlReader::Token::Broken:
        return all + "!";
    }
  }
}

TEST(XmlReaderTest, TellsElementsAttributesAndTexts) {
  EXPECT_EQ(readOut("<x a='1'>t<y/>u</x>"), "<x1't'<y>y'u'>x");
  EXPECT_EQ(readOut("<?xml version=\"1.0\"?>\n<!-- c --><x\n b = '0' a = \"2\" ></x >\n<!-- d -->"),
            "<x2>x");
  EXPECT_EQ(readOut("<p:x q:a='3'></p:x>"), "<x3>x");
}

TEST(XmlReaderTest, ResolvesEntities) {
  EXPECT_EQ(readOut("<x a='&lt;&gt;&amp;&quot;&apos;'>&#65;&#x42;&#x20AC;&#x1F600;</x>"),
            "<x<>&\"''AB\u20AC\U0001F600'>x");
  EXPECT_EQ(readOut("<x><![CDATA[<&]]]></x>"), "<x'<&]'>x");
}

TEST(XmlReaderTest, WhatIsNotWellFormedIsBroken) {
  for (const char* document : {"",
                               " ",
                               "text",
                               "<x>",
                               "</x>",
                               "<x></y>",
                               "<x/><y/>",
                               "<x/>t",
                               "<x a></x>",
                               "<x a=1></x>",
                               "<x a='1></x>",
                               "<x a='<'/>",
                               "<x>&no;</x>",
                               "<x>&#0;</x>",
                               "<x>&#xD800;</x>",
                               "<x>&amp</x>",
                               "<x>&#x110000;</x>",
                               "<x><![CDATA[</x>",
                               "<x><!-- </x>",
                               "<!DOCTYPE x><x/>",
                               "<x/",
                               "<>",
                               "<x>\x01</x>",
                               "<x>\xFF</x>",
                               "<x>\xC0\x80</x>",
                               "<x>\xED\xA0\x80</x>",
                               "<x>\xE2\x82</x>"}) {
    const std::string all = readOut(document);
    EXPECT_EQ(all.substr(all.size() - 1), "!") << document;
  }
}

TEST(XmlReaderTest, ADeepDocumentIsBroken) {
  const auto nested = [](std::size_t depth) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i) text += "<x>";
    for (std::size_t i = 0; i < depth; ++i) text += "</x>";
    return readOut(text);
  };
  EXPECT_EQ(nested(XmlReader::kMostDepth).find('!'), std::string::npos);
  EXPECT_NE(nested(XmlReader::kMostDepth + 1).find('!'), std::string::npos);
}

TEST(XmlReaderTest, AnyNumberOfEmptyPiecesOfDataIsPassedOver) {
  std::string text = "<x>";
  for (int i = 0; i < 100'000; ++i) text += "<![CDATA[]]>";
  EXPECT_EQ(readOut(text + "<![CDATA[a]]></x>"), "<x'a'>x");
  EXPECT_EQ(readOut(text), "<x!");
}

TEST(XmlReaderTest, AByteOrderMarkMayStandInFront) {
  EXPECT_EQ(readOut("\xEF\xBB\xBF<?xml version='1.0'?><x/>"), "<x>x");
  EXPECT_EQ(readOut("<x>\xEF\xBB\xBF</x>"), "<x'\xEF\xBB\xBF'>x") << "elsewhere it is a text";
  EXPECT_EQ(readOut("\xEF\xBB\xBF\xEF\xBB\xBF<x/>"), "!");
}

TEST(XmlReaderTest, WhatIsEscapedReadsAsItWas) {
  const std::string text = "<a & b> \"c\" 'd'\t\r\n\u20AC";
  EXPECT_EQ(readOut("<x a='" + xmlEscaped(text) + "'/>"), "<x" + text + ">x");
  EXPECT_EQ(readOut("<x>" + xmlEscaped(text) + "</x>"), "<x'" + text + "'>x");
}

TEST(XmlReaderTest, KnowsWhatCannotBeWritten) {
  EXPECT_TRUE(canBeXml("R0001.WAV"));
  EXPECT_TRUE(canBeXml("\u00E9\u20AC\U0001F600"));
  for (const char* text : {"\x07", "\xE9", "\xEF\xBF\xBF", "\xF4\x90\x80\x80", "a\x80"}) {
    EXPECT_FALSE(canBeXml(text)) << text;
  }
}

}  // namespace
