// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// tree, resolve and dump.
#include "catalogue_commands.h"

#include <unistd.h>

#include <cstdio>
#include <unordered_map>

#include "directory_scan.h"
#include "errors.h"
#include "item_kinds.h"
#include "ma/mdc_vfs_user_data_dr.h"
#include "sample_catalogue.h"

namespace ma_cli {

namespace {

// Text columns of a tree line: path, kind, then the indented caption.
constexpr std::size_t kPathColumn = 12;
constexpr std::size_t kKindColumn = 12;

std::string displayPath(std::string const& path) { return path.empty() ? "(root)" : path; }

ma::itemType kindOf(ma::ItemInfo const* item) {
  return item ? item->getItemType() : ma::ITEM_TYPE_UNKNOWN;
}

// Walks the tree depth first, calling visit(entry, path, depth) for each
// entry in the chosen order; paths are always list positions.
class TreeWalk {
 public:
  explicit TreeWalk(TreeOptions const& options) : options_(options) {}

  template <typename Visit>
  void walk(boost::shared_ptr<ma::VfsEntry> const& entry, std::string& path, int depth, Visit& visit) {
    visit(entry, path, depth);
    if (options_.maxDepth >= 0 && depth >= options_.maxDepth) return;
    EntryList const children = childrenOf(*entry);
    if (options_.sort.empty()) {
      for (std::size_t index = 0; index < children.size(); ++index) {
        descend(children[index], index, path, depth, visit);
      }
      return;
    }
    auto folder = boost::dynamic_pointer_cast<ma::VfsFixedFolder>(entry);
    if (!folder) return;  // a leaf: nothing to sort
    // The sorted view names each child by its list position.
    std::unordered_map<ma::VfsEntry*, std::size_t> position;
    for (std::size_t index = children.size(); index-- > 0;) position[children[index].get()] = index;
    for (auto const& child : sortedChildrenOf(*folder, options_.sort)) {
      descend(child, position[child.get()], path, depth, visit);
    }
  }

 private:
  template <typename Visit>
  void descend(boost::shared_ptr<ma::VfsEntry> const& child, std::size_t index, std::string& path,
               int depth, Visit& visit) {
    std::size_t const length = path.size();
    path += '$';
    path += std::to_string(index);
    walk(child, path, depth + 1, visit);
    path.resize(length);
  }

  TreeOptions const& options_;
};

// The content key as 32 hexadecimal digits.
std::string keyHex(VfsUserDataDR& data) {
  std::string key;
  char byte[3];
  for (int i = 0; i < VfsUserDataDR::kKeySize; ++i) {
    std::snprintf(byte, sizeof byte, "%02x", data.getKey()[i]);
    key += byte;
  }
  return key;
}

void printRecorderDataText(TextWriter& out, VfsUserDataDR& data) {
  out << "recorder data:\n"
      << "  recording       " << (data.getIsRecording() ? "yes" : "no") << '\n'
      << "  stream          " << data.getStreamBegin() << " .. " << data.getStreamEnd() << '\n'
      << "  circular        " << data.getCircularBegin() << " .. " << data.getCircularEnd() << '\n'
      << "  encryption      " << data.getEncryption() << '\n';
  if (data.getEncryption() != 0) out << "  key             " << keyHex(data) << '\n';
}

Json recorderDataJson(VfsUserDataDR& data) {
  Json json;
  json["recording"] = data.getIsRecording();
  json["streamBegin"] = data.getStreamBegin();
  json["streamEnd"] = data.getStreamEnd();
  json["circularBegin"] = data.getCircularBegin();
  json["circularEnd"] = data.getCircularEnd();
  json["encryption"] = data.getEncryption();
  if (data.getEncryption() != 0) json["key"] = keyHex(data);
  return json;
}

// Keeps a scanned tree alive to the end of the process. Releasing a tree
// of 100,000 records entry by entry costs about a sixth of the whole run,
// and the process ends right after printing it; the memory goes back with
// the process. (Reachable to the end, so no leak checker reports it.)
void keepUntilExit(Catalogue const& catalogue) {
  static auto* const kept = new std::vector<boost::shared_ptr<ma::VfsFixedFolder> >;
  kept->push_back(catalogue.root);
}

void reportSkipped(std::vector<SkippedEntry> const& skipped) {
  for (SkippedEntry const& entry : skipped) {
    std::fprintf(stderr, "ma-cli: skipped %s: %s\n", escaped(entry.path).c_str(), entry.reason.c_str());
  }
}

}  // namespace

Catalogue loadCatalogue(std::string const& directory, int maxDepth) {
  if (directory.empty()) return makeSampleCatalogue();
  ScanOptions options;
  options.maxDepth = maxDepth;
  options.showProgress = ::isatty(2) != 0;
  Catalogue catalogue = scanDirectory(directory, options);
  keepUntilExit(catalogue);
  reportSkipped(catalogue.skipped);
  return catalogue;
}

Json treeJson(boost::shared_ptr<ma::VfsFixedFolder> const& root, TreeOptions const& options) {
  // A stack of the open "children" arrays, one per depth.
  Json document = Json::array();
  std::vector<Json*> levels{&document};
  auto visit = [&levels](boost::shared_ptr<ma::VfsEntry> const& entry, std::string const& path, int depth) {
    levels.resize(static_cast<std::size_t>(depth) + 1);
    Json node = entryJson(entry, path);
    if (isFolder(entry)) node["children"] = Json::array();
    levels.back()->push_back(std::move(node));
    if (isFolder(entry)) levels.push_back(&levels.back()->back()["children"]);
  };
  std::string path;
  TreeWalk(options).walk(root, path, 0, visit);
  return document.empty() ? Json::object() : document.front();
}

std::vector<std::string> linesOf(std::string const& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

void printTreeText(TextWriter& out, boost::shared_ptr<ma::VfsFixedFolder> const& root,
                   TreeOptions const& options) {
  std::string line;
  auto visit = [&out, &line](boost::shared_ptr<ma::VfsEntry> const& entry, std::string const& path, int depth) {
    boost::shared_ptr<ma::ItemInfo> item = entry->getItemInfo();
    line = padRight(displayPath(path), kPathColumn - 1);
    line += ' ';
    line += padRight(item ? kindName(item->getItemType()) : "-", kKindColumn - 1);
    line += ' ';
    line.append(static_cast<std::size_t>(depth) * 2, ' ');
    line += item ? escaped(item->getCaption()) : "(no record)";
    line += '\n';
    out << line;
  };
  std::string path;
  TreeWalk(options).walk(root, path, 0, visit);
}

Json entryJson(boost::shared_ptr<ma::VfsEntry> const& entry, std::string const& path) {
  Json json;
  json["path"] = path;
  boost::shared_ptr<ma::ItemInfo> item = entry->getItemInfo();
  json["kind"] = kindName(kindOf(item.get()));
  if (!item) return json;
  json["caption"] = item->getCaption();
  json["uuid"] = item->getUUID();
  if (!item->getItemLocator().empty()) json["locator"] = item->getItemLocator();
  if (item->getFileSize() != 0) json["size"] = item->getFileSize();
  if (item->getDateNumeric() != 0) json["dateNumeric"] = item->getDateNumeric();
  return json;
}

void printResolutionText(TextWriter& out, boost::shared_ptr<ma::VfsFixedFolder> const& root,
                         std::string const& path, Resolution const& resolution) {
  out << "resolvePath(\"" << escaped(path) << "\") = " << resolution.result << '\n';
  if (resolution.entry) {
    boost::shared_ptr<ma::ItemInfo> item = resolution.entry->getItemInfo();
    out << "  entry   " << displayPath(positionalPathOf(root, resolution.entry)) << "  "
        << kindName(kindOf(item.get())) << "  \"" << (item ? escaped(item->getCaption()) : "") << "\"\n";
    if (resolution.parent) {
      out << "  parent  " << displayPath(positionalPathOf(root, resolution.parent))
          << ", resolved path text \"" << escaped(resolution.resultPath) << "\"\n";
    }
  }
  for (std::string const& line : resolution.trace) {
    std::vector<std::string> const parts = wrapped("trace: " + escaped(line), 76);
    for (std::size_t i = 0; i < parts.size(); ++i) out << (i == 0 ? "  " : "    ") << parts[i] << '\n';
  }
}

Json resolutionJson(boost::shared_ptr<ma::VfsFixedFolder> const& root, std::string const& path,
                    Resolution const& resolution) {
  Json json;
  json["path"] = path;
  json["result"] = resolution.result;
  if (resolution.entry) {
    json["entry"] = entryJson(resolution.entry, positionalPathOf(root, resolution.entry));
    if (resolution.parent) {
      json["parent"] = positionalPathOf(root, resolution.parent);
      json["resolvedPath"] = resolution.resultPath;
    }
  }
  json["trace"] = resolution.trace;
  return json;
}

void runTree(Output& output, TreeOptions const& options) {
  Catalogue const catalogue = loadCatalogue(options.directory, options.maxDepth);
  if (output.json) {
    Json json;
    json["source"] = options.directory.empty() ? "sample" : options.directory;
    if (!options.sort.empty()) json["sort"] = options.sort;
    json["tree"] = treeJson(catalogue.root, options);
    json["skipped"] = Json::array();
    for (SkippedEntry const& entry : catalogue.skipped) {
      json["skipped"].push_back({{"path", entry.path}, {"reason", entry.reason}});
    }
    printJson(output.text, json);
  } else {
    printTreeText(output.text, catalogue.root, options);
  }
}

void runResolve(Output& output, std::string const& path, std::string const& directory) {
  Catalogue const catalogue = loadCatalogue(directory);
  Resolution const resolution = resolveOrThrow(catalogue.root, path);
  if (output.json) {
    printJson(output.text, resolutionJson(catalogue.root, path, resolution));
  } else {
    printResolutionText(output.text, catalogue.root, path, resolution);
  }
}

void runDump(Output& output, std::string const& path, std::string const& directory) {
  Catalogue const catalogue = loadCatalogue(directory);
  boost::shared_ptr<ma::VfsEntry> entry = resolveOrThrow(catalogue.root, path).entry;
  boost::shared_ptr<ma::ItemInfo> item = entry->getItemInfo();
  if (!item) throw InputError("entry \"" + path + "\" has no item record");
  auto recorderData = boost::dynamic_pointer_cast<VfsUserDataDR>(entry->getUserData());
  std::string const where = positionalPathOf(catalogue.root, entry);
  if (output.json) {
    Json json = entryJson(entry, where);
    json["dump"] = linesOf(item->toString());
    if (recorderData) json["recorderData"] = recorderDataJson(*recorderData);
    printJson(output.text, json);
    return;
  }
  output.text << displayPath(where) << "  " << kindName(item->getItemType()) << "  \""
              << escaped(item->getCaption()) << "\"\n";
  for (std::string const& line : linesOf(item->toString())) output.text << escaped(line) << '\n';
  if (recorderData) printRecorderDataText(output.text, *recorderData);
}

}  // namespace ma_cli
