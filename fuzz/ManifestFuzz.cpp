// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a manifest and as a chain of manifests: an input is the document.

#include <string_view>

#include "FuzzInput.h"
#include "transfer/Manifest.h"
#include "transfer/XmlReader.h"

namespace {

void checkReader(std::string_view document) {
  XmlReader reader(document);
  std::size_t depth = 0;
  for (;;) {
    const auto token = reader.next();
    if (token == XmlReader::Token::Broken) return;
    if (token == XmlReader::Token::Done) return require(depth == 0, "all that starts ends");
    if (token == XmlReader::Token::Start) ++depth;
    if (token == XmlReader::Token::End) require(depth-- > 0, "what ends has started");
    if (token == XmlReader::Token::Text) require(canBeXml(reader.text()), "a text is a text");
    require(depth <= XmlReader::kMostDepth, "depth is bounded");
  }
}

bool isSame(const Manifest::Entry& a, const Manifest::Entry& b) {
  return a.path == b.path && a.size == b.size && a.modified == b.modified;
}

void checkManifest(std::string_view document) {
  std::string whyNot;
  const auto manifest = Manifest::fromXml(document, whyNot);
  require(manifest.has_value() == whyNot.empty(), "what is none has a reason");
  if (!manifest) return;
  for (const Manifest::Entry& entry : manifest->entries) {
    require(!entry.path.empty() && entry.path[0] != '/', "paths are relative");
  }
  Manifest plain;  // hashes and their attributes are ours wherever we write them
  for (const auto& entry : manifest->entries)
    plain.entries.push_back({entry.path, entry.size, entry.modified, {}, {}, {}});
  const auto again = Manifest::fromXml(plain.toXml(), whyNot);
  require(again && again->entries.size() == manifest->entries.size(), "what is written is read");
  for (std::size_t i = 0; i < again->entries.size(); ++i) {
    require(isSame(again->entries[i], manifest->entries[i]), "an entry reads as it was written");
  }
}

void checkChain(std::string_view document) {
  std::string whyNot;
  const auto chain = ManifestChain::fromXml(document, whyNot);
  require(chain.has_value() == whyNot.empty(), "what is no chain has a reason");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view document(reinterpret_cast<const char*>(data), size);
  checkReader(document);
  checkManifest(document);
  checkChain(document);
  return 0;
}
