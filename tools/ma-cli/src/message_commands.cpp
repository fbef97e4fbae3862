// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// msg and msg decode.
#include "message_commands.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "errors.h"
#include "item_dump.h"
#include "item_kinds.h"
#include "item_message.h"

namespace ma_cli {

namespace {

// Message files are small (a few kilobytes); anything far bigger is not one.
constexpr std::size_t kLargestMessageFile = 16 * 1024 * 1024;

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// The bytes of message file `path`; "-" is standard input.
std::vector<unsigned char> readMessageFile(std::string const& path) {
  bool const standardInput = path == "-";
  std::unique_ptr<std::FILE, FileCloser> file(standardInput ? nullptr : std::fopen(path.c_str(), "rb"));
  if (!standardInput && !file) throw InputError("cannot read " + quoted(path) + ": " + std::strerror(errno));
  std::FILE* const input = standardInput ? stdin : file.get();
  std::vector<unsigned char> bytes;
  unsigned char block[65536];
  for (;;) {
    std::size_t const count = std::fread(block, 1, sizeof block, input);
    bytes.insert(bytes.end(), block, block + count);
    if (bytes.size() > kLargestMessageFile) {
      throw InputError(quoted(path) + " is too large for a message file");
    }
    if (count < sizeof block) break;
  }
  if (std::ferror(input)) {
    throw InputError("cannot read " + quoted(path) + ": " + std::strerror(errno));
  }
  return bytes;
}

void writeMessageFile(std::string const& path, std::vector<unsigned char> const& bytes) {
  std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "wb"));
  if (!file) throw InputError("cannot write " + quoted(path) + ": " + std::strerror(errno));
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fclose(file.release()) != 0) {
    throw InputError("cannot write " + quoted(path) + ": " + std::strerror(errno));
  }
}

}  // namespace

RoundTrip compareRoundTrip(ma::ItemInfo& original, boost::shared_ptr<ma::ItemInfo> const& rebuilt) {
  RoundTrip roundTrip;
  if (!rebuilt) return roundTrip;
  roundTrip.kind = kindName(rebuilt->getItemType());
  roundTrip.equal = original == *rebuilt;
  roundTrip.sameDump = original.toString() == rebuilt->toString();
  return roundTrip;
}

void printRoundTripText(TextWriter& out, RoundTrip const& roundTrip) {
  out << "back to an item: " << (roundTrip.kind.empty() ? "none" : roundTrip.kind)
      << ", operator== " << (roundTrip.equal ? "equal" : "NOT equal") << ", text dumps "
      << (roundTrip.sameDump ? "identical" : "DIFFERENT") << '\n';
}

Json roundTripJson(RoundTrip const& roundTrip) {
  return Json{{"kind", roundTrip.kind}, {"equal", roundTrip.equal}, {"sameDump", roundTrip.sameDump}};
}

void runMsg(Output& output, std::string const& path, std::string const& directory,
            ScanSettings const& settings, std::string const& outFile) {
  Catalogue const catalogue = loadCatalogue(directory, settings);
  boost::shared_ptr<ma::VfsEntry> entry = resolveOrThrow(catalogue.root, path).entry;
  boost::shared_ptr<ma::ItemInfo> item = entry->getItemInfo();
  if (!item) throw InputError("entry " + quoted(path) + " has no item record");

  boost::shared_ptr<ma::ItemInfo> rebuilt;
  MessageListing const listing = listMessage(*item, Layout::kThisBuild, &rebuilt);
  RoundTrip const roundTrip = compareRoundTrip(*item, rebuilt);
  std::size_t written = 0;
  if (!outFile.empty()) {
    std::vector<unsigned char> const bytes = flattenedMessage(*item);
    writeMessageFile(outFile, bytes);
    written = bytes.size();
  }
  std::string const where = positionalPathOf(catalogue.root, entry);
  if (output.json) {
    Json json;
    json["path"] = where;
    json["kind"] = kindName(item->getItemType());
    json["caption"] = item->getCaption();
    json["message"] = messageJson(listing);
    json["roundTrip"] = roundTripJson(roundTrip);
    if (!outFile.empty()) json["file"] = {{"name", outFile}, {"bytes", written}};
    printJson(output.text, json);
    return;
  }
  output.text << "item " << where << "  " << kindName(item->getItemType()) << "  \""
              << escaped(item->getCaption()) << "\"\n";
  printMessageText(output.text, listing);
  printRoundTripText(output.text, roundTrip);
  if (!outFile.empty()) {
    output.text << "wrote " << written << " bytes (little-endian, flattened) to " << escaped(outFile) << '\n';
  }
}

void runMsgDecode(Output& output, std::string const& file) {
  std::vector<unsigned char> const bytes = readMessageFile(file);
  boost::shared_ptr<ma::ItemInfo> item;
  try {
    item = decodeMessage(bytes);
  } catch (InputError const& error) {
    throw InputError((file == "-" ? std::string("standard input") : quoted(file)) + ": " + error.what());
  }
  if (output.json) {
    Json json;
    json["file"] = file;
    json["bytes"] = bytes.size();
    json["kind"] = kindName(item->getItemType());
    json["caption"] = item->getCaption();
    json["uuid"] = item->getUUID();
    json["dump"] = safeDumpLines(*item);
    printJson(output.text, json);
    return;
  }
  std::string const kind = kindName(item->getItemType());
  char const* const article = kind.find_first_of("aeiou") == 0 ? "an " : "a ";
  output.text << (file == "-" ? std::string("standard input") : escaped(file)) << ": " << bytes.size()
              << " bytes, " << article << kind << " item\n";
  for (std::string const& line : safeDumpLines(*item)) output.text << line << '\n';
}

}  // namespace ma_cli
