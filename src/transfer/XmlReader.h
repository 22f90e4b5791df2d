// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Reads the elements, attributes and texts of an XML document, one after the other: as much of XML
/// as manifests are made of. Names lose their prefixes; comments, instructions and the declaration
/// are passed over. A document type, an entity of its own and whatever is not well-formed end it as
/// broken. The document has to be UTF-8, with or without a byte order mark, and to outlive the
/// reader. One thread at a time.
class XmlReader {
 public:
  enum class Token { Start, End, Text, Done, Broken };
  static constexpr std::size_t kMostDepth = 64;

  explicit XmlReader(std::string_view document);

  /// Goes on to the next piece. An empty element is a start and an end.
  Token next();
  /// Of the element that starts or ends.
  [[nodiscard]] std::string_view name() const { return _name; }
  /// Of the element that starts; empty where it has none of that name.
  [[nodiscard]] std::string attribute(std::string_view name) const;
  /// Of a text, with its entities resolved. Never empty.
  [[nodiscard]] const std::string& text() const { return _text; }

 private:
  [[nodiscard]] bool skip(std::string_view start, std::string_view end);
  [[nodiscard]] bool skipMarkup();
  void skipSpace();
  bool take(std::string_view what);
  std::string_view takeName();
  Token nextPiece();
  Token takeText();
  Token takeData();
  Token takeStart();
  Token takeEnd();
  bool takeAttribute();
  Token broken();
  static bool resolve(std::string_view raw, std::string& text);
  static bool resolveEntity(std::string_view entity, std::string& text);

  std::string_view _rest;
  std::string_view _name;
  std::string _text;
  std::vector<std::pair<std::string_view, std::string>> _attributes;
  std::vector<std::string_view> _open;  ///< with their prefixes
  bool _isEmptyElement = false;
  bool _hasRoot = false;
  bool _isBroken = false;
};

/// The text with what XML gives a meaning as entities; for texts and attributes.
std::string xmlEscaped(std::string_view text);

/// Whether the text is UTF-8 and can stand in an XML document: some characters cannot.
bool canBeXml(std::string_view text);
