// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/Manifest.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <ctime>
#include <system_error>

#include "transfer/XmlReader.h"

namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr std::string_view kFailed = "failed";

std::optional<std::uint64_t> numberOf(const std::string& text) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = error == std::errc() && end == text.data() + text.size();
  return isNumber ? std::optional(number) : std::nullopt;
}

std::string lowered(std::string text) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  std::transform(text.begin(), text.end(), text.begin(), lower);
  return text;
}

// Whether the path stays inside of the folder that it is taken from.
bool staysWithin(std::string_view path) {
  if (path.empty() || path.front() == '/') return false;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('/'), path.size());
    if (path.substr(0, end) == "..") return false;
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return true;
}

/// Walks a document whose root has a certain name, and hands on what it meets.
class Document {
 public:
  Document(std::string_view text, std::string_view root) : _reader(text), _root(root) {}

  /// `start` and `end` get the reader and the path of the element below the root, as "hashes/hash";
  /// `end` its text too. Empty when all is well, else why not.
  template <class Start, class End>
  std::string walk(const Start& start, const End& end) {
    using Token = XmlReader::Token;
    for (Token token = _reader.next(); token != Token::Done; token = _reader.next()) {
      if (token == Token::Broken) return "it is not well-formed";
      if (token == Token::Text) _text += _reader.text();
      if (token == Token::Start && !enter(start)) return "it is no such list";
      if (token == Token::End) leave(end);
    }
    return "";
  }

 private:
  template <class Start>
  bool enter(const Start& start) {
    _text.clear();
    if (_depth++ == 0) return _reader.name() == _root;
    _path += (_path.empty() ? "" : "/") + std::string(_reader.name());
    start(_reader, _path);
    return true;
  }

  template <class End>
  void leave(const End& end) {
    if (--_depth == 0) return;
    end(_path, _text);
    _text.clear();
    const std::size_t slash = _path.rfind('/');
    _path.resize(slash == std::string::npos ? 0 : slash);
  }

  XmlReader _reader;
  std::string_view _root;
  std::string _path;
  std::string _text;
  std::size_t _depth = 0;
};

std::string element(const Manifest::Entry& entry) {
  const std::string size = entry.size ? fmt::format(" size=\"{}\"", *entry.size) : "";
  const std::string modified = entry.modified.empty() ? ""
                                                      : fmt::format(" lastmodificationdate=\"{}\"",
                                                                    xmlEscaped(entry.modified));
  return fmt::format(
      "    <hash>\n"
      "      <path{}{}>{}</path>\n"
      "      <xxh128 action=\"{}\" hashdate=\"{}\">{}</xxh128>\n"
      "    </hash>\n",
      size, modified, xmlEscaped(entry.path), entry.action, entry.hashedAt, entry.hash);
}

}  // namespace

std::string Manifest::timeText(std::int64_t seconds) {
  std::tm utc{};
  const auto time = static_cast<std::time_t>(seconds);
  gmtime_r(&time, &utc);
  return fmt::format("{:%Y-%m-%dT%H:%M:%S}+00:00", utc);
}

std::string Manifest::toXml() const {
  std::string text = fmt::format(
      "{}<hashlist version=\"2.0\" xmlns=\"urn:ASC:MHL:v2.0\">\n"
      "  <creatorinfo>\n"
      "    <creationdate>{}</creationdate>\n"
      "    <hostname>{}</hostname>\n"
      "    <tool version=\"{}\">mixdeck-cli</tool>\n"
      "  </creatorinfo>\n"
      "  <processinfo>\n"
      "    <process>transfer</process>\n"
      "    <ignore>\n"
      "      <pattern>ascmhl</pattern>\n"
      "      <pattern>ascmhl/</pattern>\n"
      "    </ignore>\n"
      "  </processinfo>\n",
      kDeclaration, createdAt, xmlEscaped(host), xmlEscaped(toolVersion));
  if (!entries.empty()) text += "  <hashes>\n";
  for (const Entry& entry : entries) text += element(entry);
  return text + (entries.empty() ? "" : "  </hashes>\n") + "</hashlist>\n";
}

std::optional<Manifest> Manifest::fromXml(std::string_view document, std::string& whyNot) {
  Manifest manifest;
  Entry entry;
  bool staysInside = true;
  const auto start = [&](const XmlReader& reader, std::string_view path) {
    if (path == "hashes/hash") entry = Entry();
    if (path == "hashes/hash/path") {
      entry.size = numberOf(reader.attribute("size"));
      entry.modified = reader.attribute("lastmodificationdate");
    }
    const bool isKnown = path == "hashes/hash/xxh128";
    const std::string action = reader.attribute("action");
    if (isKnown) entry.hashedAt = reader.attribute("hashdate");
    // One of whatever kind that failed outweighs the others.
    if (path.starts_with("hashes/hash/") && (isKnown || action == kFailed)) {
      if (entry.action != kFailed) entry.action = action;
    }
  };
  const auto end = [&](std::string_view path, const std::string& text) {
    if (path == "creatorinfo/creationdate") manifest.createdAt = text;
    if (path == "creatorinfo/hostname") manifest.host = text;
    if (path == "hashes/hash/path") entry.path = text;
    if (path == "hashes/hash/xxh128") entry.hash = lowered(text);
    if (path != "hashes/hash") return;
    staysInside = staysInside && staysWithin(entry.path);
    manifest.entries.push_back(entry);
  };
  whyNot = Document(document, "hashlist").walk(start, end);
  if (whyNot.empty() && !staysInside) whyNot = "a path in it leads out of the folder";
  return whyNot.empty() ? std::optional(manifest) : std::nullopt;
}

std::string ManifestChain::toXml() const {
  std::string text =
      fmt::format("{}<ascmhldirectory xmlns=\"urn:ASC:MHL:DIRECTORY:v2.0\">\n", kDeclaration);
  for (const Link& link : links) {
    text += fmt::format(
        "  <hashlist sequencenr=\"{}\">\n"
        "    <path>{}</path>\n"
        "    <c4>{}</c4>\n"
        "  </hashlist>\n",
        link.number, xmlEscaped(link.file), link.c4);
  }
  return text + "</ascmhldirectory>\n";
}

std::optional<ManifestChain> ManifestChain::fromXml(std::string_view document,
                                                    std::string& whyNot) {
  ManifestChain chain;
  Link link;
  const auto start = [&](const XmlReader& reader, std::string_view path) {
    if (path == "hashlist")
      link = Link{numberOf(reader.attribute("sequencenr")).value_or(0), {}, {}};
  };
  const auto end = [&](std::string_view path, const std::string& text) {
    if (path == "hashlist/path") link.file = text;
    if (path == "hashlist/c4") link.c4 = text;
    if (path == "hashlist") chain.links.push_back(link);
  };
  whyNot = Document(document, "ascmhldirectory").walk(start, end);
  return whyNot.empty() ? std::optional(chain) : std::nullopt;
}
