// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The walk through the sample catalogue.
#include "default_walk.h"

#include <ctime>

#include "delivery_commands.h"
#include "item_kinds.h"
#include "item_message.h"
#include "message_commands.h"
#include "sample_catalogue.h"
#include "selection_commands.h"

namespace ma_cli {

namespace {

// What the walk shows, chosen from the sample.
char const* const kSortedFolder = "$1";          // Recordings
char const* const kSortCriteria[] = {"+dc:title", "-dc:title", "date"};
char const* const kResolvedPaths[] = {"$2$0$0$1", "$0$UUID-tv-002", "$1$7"};
char const* const kLookupFolder = "$0";          // TV
char const* const kLookedUpUuid = "UUID-tv-002";  // ZDF HD
char const* const kMessageItem = "$1$0";         // a recording
unsigned int const kDeliveryMasks[] = {0x0,  0x1,  0x2,   0x6,   0x18,  0x24,  0x28,
                                       0x60, 0x80, 0x82,  0x300, 0x400, 0x1800};

void heading(TextWriter& out, std::string const& title) { out << "\n== " << title << " ==\n"; }

// A date as UTC text; "-" for 0.
std::string utcDate(long long seconds) {
  if (seconds == 0) return "-";
  std::time_t const time = static_cast<std::time_t>(seconds);
  std::tm utc;
  char text[32];
  if (::gmtime_r(&time, &utc) == nullptr || std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &utc) == 0) {
    return std::to_string(seconds);
  }
  return text;
}

// The child of kLookupFolder with identifier kLookedUpUuid, through the
// fixed folder's own lookup.
boost::shared_ptr<ma::VfsEntry> uuidLookup(boost::shared_ptr<ma::VfsEntry> const& root) {
  auto folder = boost::dynamic_pointer_cast<ma::VfsFixedFolder>(resolveOrThrow(root, kLookupFolder).entry);
  return folder->findEntrybyUUID(kLookedUpUuid);
}

ma::SelectionStrings sampleSelection() {
  ma::SelectionStrings parts;
  parts.sourceType = "file";
  parts.volume = "usb0";
  parts.path = "Music/Evening.m3u";
  parts.parameters["shuffle"] = "1";
  parts.parameters["start"] = "2";
  return parts;
}

// The children of `folder` in one order, each with its list position.
EntryList orderedChildren(ma::VfsFixedFolder& folder, std::string const& criteria) {
  return criteria.empty() ? childrenOf(folder) : sortedChildrenOf(folder, criteria);
}

void printSorted(TextWriter& out, boost::shared_ptr<ma::VfsEntry> const& root,
                 boost::shared_ptr<ma::VfsFixedFolder> const& folder) {
  auto list = [&](std::string const& title, std::string const& criteria) {
    out << title << '\n';
    for (auto const& child : orderedChildren(*folder, criteria)) {
      boost::shared_ptr<ma::ItemInfo> item = child->getItemInfo();
      out << "  " << padRight(positionalPathOf(root, child), 8) << padRight(utcDate(item->getDateNumeric()), 18)
          << escaped(item->getCaption()) << '\n';
    }
  };
  list("list order (getIterator):", "");
  for (char const* criteria : kSortCriteria) {
    std::string title = std::string("getSortedIterator(\"") + criteria + "\")";
    if (std::string(criteria) == "date") title += ", as any other text: newest first";
    list(title + ":", criteria);
  }
}

Json sortedJson(boost::shared_ptr<ma::VfsEntry> const& root,
                boost::shared_ptr<ma::VfsFixedFolder> const& folder) {
  Json json;
  json["folder"] = kSortedFolder;
  auto list = [&](std::string const& criteria) {
    Json entries = Json::array();
    for (auto const& child : orderedChildren(*folder, criteria)) {
      entries.push_back(entryJson(child, positionalPathOf(root, child)));
    }
    return entries;
  };
  json["listOrder"] = list("");
  for (char const* criteria : kSortCriteria) json[criteria] = list(criteria);
  return json;
}

void printWalkText(TextWriter& out, Catalogue const& catalogue,
                   boost::shared_ptr<ma::VfsFixedFolder> const& folder, ma::ItemInfo& messageItem) {
  out << "ma-cli: a walk through the built-in sample receiver catalogue\n"
      << "(\"ma-cli --help\" lists the commands that work on your own input)\n";

  heading(out, "Tree: positional path, kind, caption");
  printTreeText(out, catalogue.root, TreeOptions());

  heading(out, std::string("Sorting ") + kSortedFolder + " " + folder->getItemInfo()->getCaption());
  printSorted(out, catalogue.root, folder);

  heading(out, "Path resolution");
  for (char const* path : kResolvedPaths) {
    printResolutionText(out, catalogue.root, path, resolve(catalogue.root, path));
  }
  out << "(An identifier query finds nothing in a fixed folder: findUuid walks the\n"
      << "iterator that getIterator(search, order, filter) gives, and a fixed folder\n"
      << "gives none. The folder's own step then reads the part as an index.\n"
      << "The folder's own lookup by identifier, findEntrybyUUID, does find it:)\n";
  boost::shared_ptr<ma::VfsEntry> found = uuidLookup(catalogue.root);
  out << "findEntrybyUUID(\"" << kLookedUpUuid << "\") on " << kLookupFolder << " = "
      << positionalPathOf(catalogue.root, found) << " \"" << found->getItemInfo()->getCaption() << "\"\n";

  heading(out, std::string("Item message of ") + kMessageItem + " \"" + messageItem.getCaption() + "\"");
  boost::shared_ptr<ma::ItemInfo> rebuilt;
  printMessageText(out, listMessage(messageItem, Layout::kTarget32, &rebuilt));
  printRoundTripText(out, compareRoundTrip(messageItem, rebuilt));

  heading(out, "Selection URI");
  ma::SelectionStrings const parts = sampleSelection();
  std::string const uri = createSelection(parts);
  out << "mdcSelectionCreate(file, usb0, Music/Evening.m3u, shuffle=1 start=2) = 0\n"
      << "  \"" << uri << "\"\n"
      << "  (parameters follow one another without a separator)\n";
  printSelectionParseText(out, parseSelection(uri));
  printSelectionParseText(out, parseSelection("usb0/Music"));

  heading(out, "Delivery systems: the system a bit set selects");
  out << "mask   bits            system   fe idx  predicates that hold\n";
  for (unsigned int mask : kDeliveryMasks) out << classificationLine(mask) << '\n';
}

Json walkJson(Catalogue const& catalogue, boost::shared_ptr<ma::VfsFixedFolder> const& folder,
              ma::ItemInfo& messageItem) {
  Json json;
  json["tree"] = treeJson(catalogue.root, TreeOptions());
  json["sorted"] = sortedJson(catalogue.root, folder);
  json["resolve"] = Json::array();
  for (char const* path : kResolvedPaths) {
    json["resolve"].push_back(resolutionJson(catalogue.root, path, resolve(catalogue.root, path)));
  }
  json["findEntrybyUUID"] = {{"folder", kLookupFolder}, {"uuid", kLookedUpUuid}};
  boost::shared_ptr<ma::VfsEntry> found = uuidLookup(catalogue.root);
  json["findEntrybyUUID"]["entry"] = entryJson(found, positionalPathOf(catalogue.root, found));
  boost::shared_ptr<ma::ItemInfo> rebuilt;
  json["message"] = messageJson(listMessage(messageItem, Layout::kTarget32, &rebuilt));
  json["message"]["path"] = kMessageItem;
  json["message"]["roundTrip"] = roundTripJson(compareRoundTrip(messageItem, rebuilt));
  ma::SelectionStrings const parts = sampleSelection();
  json["selection"]["create"] = selectionJson(parts);
  json["selection"]["create"]["uri"] = createSelection(parts);
  json["selection"]["parse"] = {selectionParseJson(parseSelection(createSelection(parts))),
                                selectionParseJson(parseSelection("usb0/Music"))};
  json["deliverySystems"] = Json::array();
  for (unsigned int mask : kDeliveryMasks) json["deliverySystems"].push_back(classificationJson(mask));
  return json;
}

}  // namespace

void runDefaultWalk(Output& output) {
  Catalogue const catalogue = makeSampleCatalogue();
  auto folder = boost::dynamic_pointer_cast<ma::VfsFixedFolder>(resolveOrThrow(catalogue.root, kSortedFolder).entry);
  boost::shared_ptr<ma::ItemInfo> messageItem = resolveOrThrow(catalogue.root, kMessageItem).entry->getItemInfo();
  if (output.json) {
    printJson(output.text, walkJson(catalogue, folder, *messageItem));
  } else {
    printWalkText(output.text, catalogue, folder, *messageItem);
  }
}

}  // namespace ma_cli
