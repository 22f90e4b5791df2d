// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/XmlReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace {

constexpr std::string_view kSpace = " \t\r\n";
constexpr std::string_view kNameEnd = " \t\r\n=/><\"'";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::uint32_t kMostCodePoint = 0x10FFFF;

struct Entity {
  std::string_view name;
  char character;
};
constexpr std::array<Entity, 5> kEntities{
    {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}}};

std::string_view withoutPrefix(std::string_view name) {
  const std::size_t colon = name.rfind(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool isXmlCharacter(std::uint32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  return !isSurrogate && code != 0xFFFE && code != 0xFFFF && code <= kMostCodePoint;
}

void appendUtf8(std::uint32_t code, std::string& text) {
  const auto add = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) return add(code);
  if (code < 0x800) {
    add(0xC0 | code >> 6);
  } else if (code < 0x10000) {
    add(0xE0 | code >> 12);
    add(0x80 | (code >> 6 & 0x3F));
  } else {
    add(0xF0 | code >> 18);
    add(0x80 | (code >> 12 & 0x3F));
    add(0x80 | (code >> 6 & 0x3F));
  }
  add(0x80 | (code & 0x3F));
}

// How many bytes follow the first one of a character; -1 where none begins with it.
int bytesAfter(std::uint8_t first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first < 0xE0) return 1;
  if (first >= 0xE0 && first < 0xF0) return 2;
  return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

// The character at the start of the text, which it is taken from; none where there is no whole one.
bool takeCharacter(std::string_view& text, std::uint32_t& code) {
  const auto first = static_cast<std::uint8_t>(text.front());
  const int more = bytesAfter(first);
  if (more < 0 || text.size() <= static_cast<std::size_t>(more)) return false;
  code = more == 0 ? first : first & (0x3FU >> more);
  for (std::size_t i = 1; i <= static_cast<std::size_t>(more); ++i) {
    const auto byte = static_cast<std::uint8_t>(text[i]);
    if ((byte & 0xC0) != 0x80) return false;
    code = code << 6 | (byte & 0x3FU);
  }
  text.remove_prefix(static_cast<std::size_t>(more) + 1);
  constexpr std::array<std::uint32_t, 4> kLeast{0, 0x80, 0x800, 0x10000};
  return code >= kLeast[static_cast<std::size_t>(more)];
}

}  // namespace

bool canBeXml(std::string_view text) {
  std::uint32_t code = 0;
  while (!text.empty()) {
    if (!takeCharacter(text, code) || !isXmlCharacter(code)) return false;
  }
  return true;
}

std::string xmlEscaped(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    const auto* const found =
        std::find_if(kEntities.begin(), kEntities.end(),
                     [character](const Entity& entity) { return entity.character == character; });
    if (found != kEntities.end()) {
      escaped.append("&").append(found->name).append(";");
    } else if (kSpace.find(character) != std::string_view::npos && character != ' ') {
      escaped += "&#" + std::to_string(static_cast<int>(character)) + ";";
    } else {
      escaped += character;
    }
  }
  return escaped;
}

XmlReader::XmlReader(std::string_view document) : _rest(document), _isBroken(!canBeXml(document)) {
  take(kByteOrderMark);
}

XmlReader::Token XmlReader::broken() {
  _isBroken = true;
  return Token::Broken;
}

// An empty piece of data is none.
XmlReader::Token XmlReader::next() {
  Token token = nextPiece();
  while (token == Token::Text && _text.empty()) token = nextPiece();
  return token;
}

XmlReader::Token XmlReader::nextPiece() {
  if (_isBroken) return Token::Broken;
  if (_isEmptyElement) return takeEnd();
  if (!skipMarkup()) return broken();
  if (_rest.empty()) return _open.empty() && _hasRoot ? Token::Done : broken();
  if (take("<![CDATA[")) return takeData();
  if (take("</")) return takeEnd();
  if (take("<")) return takeStart();
  return takeText();
}

// From a start to an end, if it is there; false where it begins but does not end.
bool XmlReader::skip(std::string_view start, std::string_view end) {
  if (!take(start)) return true;
  const std::size_t found = _rest.find(end);
  if (found == std::string_view::npos) return false;
  _rest.remove_prefix(found + end.size());
  return true;
}

bool XmlReader::skipMarkup() {
  for (std::size_t before = 0; before != _rest.size();) {
    before = _rest.size();
    if (_open.empty()) skipSpace();
    if (!skip("<!--", "-->") || !skip("<?", "?>")) return false;
  }
  return !_rest.starts_with("<!") || _rest.starts_with("<![CDATA[");
}

void XmlReader::skipSpace() {
  _rest.remove_prefix(std::min(_rest.find_first_not_of(kSpace), _rest.size()));
}

bool XmlReader::take(std::string_view what) {
  if (!_rest.starts_with(what)) return false;
  _rest.remove_prefix(what.size());
  return true;
}

std::string_view XmlReader::takeName() {
  const std::string_view name =
      _rest.substr(0, std::min(_rest.find_first_of(kNameEnd), _rest.size()));
  _rest.remove_prefix(name.size());
  return name;
}

XmlReader::Token XmlReader::takeText() {
  const std::string_view raw = _rest.substr(0, std::min(_rest.find('<'), _rest.size()));
  _rest.remove_prefix(raw.size());
  _text.clear();
  const bool isWhole = !_open.empty() && !_rest.empty() && resolve(raw, _text);
  return isWhole ? Token::Text : broken();
}

XmlReader::Token XmlReader::takeData() {
  const std::size_t end = _rest.find("]]>");
  if (_open.empty() || end == std::string_view::npos) return broken();
  _text = _rest.substr(0, end);
  _rest.remove_prefix(end + 3);
  return Token::Text;
}

XmlReader::Token XmlReader::takeStart() {
  const std::string_view name = takeName();
  if (name.empty() || (_hasRoot && _open.empty()) || _open.size() == kMostDepth) return broken();
  _hasRoot = true;
  _attributes.clear();
  for (skipSpace(); !_rest.empty() && _rest[0] != '>' && _rest[0] != '/'; skipSpace()) {
    if (!takeAttribute()) return broken();
  }
  _isEmptyElement = take("/");
  if (!take(">")) return broken();
  _open.push_back(name);
  _name = withoutPrefix(name);
  return Token::Start;
}

bool XmlReader::takeAttribute() {
  const std::string_view name = takeName();
  skipSpace();
  if (name.empty() || !take("=")) return false;
  skipSpace();
  const char quote = _rest.empty() ? ' ' : _rest[0];
  if (quote != '"' && quote != '\'') return false;
  const std::size_t end = _rest.find(quote, 1);
  if (end == std::string_view::npos) return false;
  std::string value;
  const std::string_view raw = _rest.substr(1, end - 1);
  if (raw.find('<') != std::string_view::npos || !resolve(raw, value)) return false;
  _attributes.emplace_back(withoutPrefix(name), std::move(value));
  _rest.remove_prefix(end + 1);
  return true;
}

XmlReader::Token XmlReader::takeEnd() {
  if (_open.empty()) return broken();
  if (!_isEmptyElement) {
    if (takeName() != _open.back()) return broken();
    skipSpace();
    if (!take(">")) return broken();
  }
  _isEmptyElement = false;
  _name = withoutPrefix(_open.back());
  _open.pop_back();
  return Token::End;
}

std::string XmlReader::attribute(std::string_view name) const {
  const auto found = std::find_if(_attributes.begin(), _attributes.end(),
                                  [name](const auto& one) { return one.first == name; });
  return found == _attributes.end() ? std::string() : found->second;
}

bool XmlReader::resolve(std::string_view raw, std::string& text) {
  while (!raw.empty()) {
    const std::size_t plain = std::min(raw.find('&'), raw.size());
    text += raw.substr(0, plain);
    raw.remove_prefix(plain);
    if (raw.empty()) return true;
    const std::size_t end = raw.find(';');
    if (end == std::string_view::npos || !resolveEntity(raw.substr(1, end - 1), text)) return false;
    raw.remove_prefix(end + 1);
  }
  return true;
}

bool XmlReader::resolveEntity(std::string_view entity, std::string& text) {
  if (!entity.starts_with('#')) {
    const auto* const found =
        std::find_if(kEntities.begin(), kEntities.end(),
                     [entity](const Entity& one) { return one.name == entity; });
    if (found == kEntities.end()) return false;
    text += found->character;
    return true;
  }
  const bool isHex = entity.starts_with("#x");
  const std::string_view digits = entity.substr(isHex ? 2 : 1);
  std::uint32_t code = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
  const bool isNumber = error == std::errc() && end == digits.data() + digits.size();
  if (!isNumber || !isXmlCharacter(code)) return false;
  appendUtf8(code, text);
  return true;
}
