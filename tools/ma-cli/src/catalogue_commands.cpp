// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// tree, resolve and dump.
#include "catalogue_commands.h"

#include <unistd.h>

#include <cstdio>
#include <unordered_map>

#include "directory_vfs.h"
#include "item_dump.h"
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

// Walks the tree depth first with a stack of its own (no recursion, so any
// depth), calling enter(entry, path, depth) for each entry in the chosen
// order and leave(entry, depth) once the entry's children are done. Paths
// are always list positions. The walk holds the children of the folders on
// its current path, no more.
class TreeWalk {
 public:
  explicit TreeWalk(TreeOptions const& options) : options_(options) {}

  template <typename Enter, typename Leave>
  void walk(boost::shared_ptr<ma::VfsEntry> const& root, Enter& enter, Leave& leave) {
    std::string path;
    enter(root, path, 0);
    std::vector<Level> levels;
    if (!open(root, 0, path.size(), &levels, nullptr)) leave(root, 0);
    while (!levels.empty()) {
      Level& level = levels.back();
      if (level.next == level.children.size()) {
        boost::shared_ptr<ma::VfsEntry> const done = level.folder;
        levels.pop_back();
        leave(done, static_cast<int>(levels.size()));
        continue;
      }
      std::size_t const index = level.next++;
      boost::shared_ptr<ma::VfsEntry> const child = level.children[index];
      boost::shared_ptr<ma::VfsIterator> iterator;  // the child's, if it was asked ahead
      if (level.ahead && level.aheadIndex == index) {
        iterator = std::move(level.ahead);
        readAhead(level, index + 1);
      }
      path.resize(level.pathLength);
      path += '$';
      path += std::to_string(level.positions.empty() ? index : level.positions[index]);
      int const depth = static_cast<int>(levels.size());
      enter(child, path, depth);
      if (!open(child, depth, path.size(), &levels, iterator)) leave(child, depth);
    }
  }

 private:
  // A folder whose children are being walked.
  struct Level {
    boost::shared_ptr<ma::VfsEntry> folder;
    EntryList children;                // in the chosen order
    std::vector<std::size_t> positions;  // list positions of a sorted order; empty: the index
    std::size_t next = 0;
    std::size_t pathLength = 0;
    int childDepth = 0;
    // The next folder among the children and its iterator, already asked
    // for its children (so a directory is read while the walk goes on).
    std::size_t aheadIndex = 0;
    boost::shared_ptr<ma::VfsIterator> ahead;
  };

  // Asks the first folder among the children of `level` from `from` on for
  // its children, without waiting (plain order only: a sorted view reads
  // its directory when it is made).
  void readAhead(Level& level, std::size_t from) {
    level.ahead.reset();
    if (!options_.sort.empty()) return;
    if (options_.maxDepth >= 0 && level.childDepth >= options_.maxDepth) return;
    for (std::size_t index = from; index < level.children.size(); ++index) {
      ma::VfsEntry& child = *level.children[index];
      if (!child.hasIterator()) continue;
      level.ahead = child.getIterator();
      level.aheadIndex = index;
      if (level.ahead) level.ahead->getNTotal(ma::VfsIterator::IntCallback([](int) {}));
      return;
    }
  }

  // Pushes the level of `entry` when it has children to walk at `depth`;
  // `iterator`, when not null, is the entry's own, asked ahead.
  bool open(boost::shared_ptr<ma::VfsEntry> const& entry, int depth, std::size_t pathLength,
            std::vector<Level>* levels, boost::shared_ptr<ma::VfsIterator> const& iterator) {
    if (!entry->hasIterator()) return false;
    if (options_.maxDepth >= 0 && depth >= options_.maxDepth) return false;
    Level level;
    level.folder = entry;
    level.pathLength = pathLength;
    level.childDepth = depth + 1;
    if (options_.sort.empty()) {
      level.children = iterator ? childrenThrough(iterator) : childrenOf(*entry);
    } else {
      level.children = sortedChildrenOf(*entry, options_.sort);
      if (dynamic_cast<ma::VfsFixedFolder*>(entry.get()) != nullptr) {
        // The sorted view names each child by its list position.
        EntryList const listed = childrenOf(*entry);
        std::unordered_map<ma::VfsEntry*, std::size_t> position;
        for (std::size_t index = listed.size(); index-- > 0;) position[listed[index].get()] = index;
        for (auto const& child : level.children) level.positions.push_back(position[child.get()]);
      } else {
        for (auto const& child : level.children) level.positions.push_back(listPosition(*child));
      }
    }
    readAhead(level, 0);
    levels->push_back(std::move(level));
    return true;
  }

  // The last index of a directory entry's own positional path.
  static std::size_t listPosition(ma::VfsEntry& entry) {
    Positioned const* positioned = dynamic_cast<Positioned const*>(&entry);
    if (!positioned) return 0;
    std::string const& path = positioned->positionalPath();
    return std::stoul(path.substr(path.rfind('$') + 1));
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

}  // namespace

Catalogue loadCatalogue(std::string const& directory, ScanSettings settings) {
  if (directory.empty()) return makeSampleCatalogue();
  settings.showProgress = ::isatty(2) != 0;
  Catalogue catalogue;
  catalogue.report.reset(new ScanReport(settings.showProgress));
  catalogue.root = openDirectoryTree(directory, settings, catalogue.report);
  return catalogue;
}

Json treeJson(boost::shared_ptr<ma::VfsEntry> const& root, TreeOptions const& options) {
  // A stack of the open "children" arrays, one per depth.
  Json document = Json::array();
  std::vector<Json*> levels{&document};
  auto enter = [&levels](boost::shared_ptr<ma::VfsEntry> const& entry, std::string const& path, int depth) {
    levels.resize(static_cast<std::size_t>(depth) + 1);
    Json node = entryJson(entry, path);
    if (isFolder(entry)) node["children"] = Json::array();
    levels.back()->push_back(std::move(node));
    if (isFolder(entry)) levels.push_back(&levels.back()->back()["children"]);
  };
  auto leave = [](boost::shared_ptr<ma::VfsEntry> const&, int) {};
  TreeWalk(options).walk(root, enter, leave);
  return document.empty() ? Json::object() : document.front();
}

void printTreeText(TextWriter& out, boost::shared_ptr<ma::VfsEntry> const& root, TreeOptions const& options) {
  std::string line;
  auto enter = [&out, &line](boost::shared_ptr<ma::VfsEntry> const& entry, std::string const& path, int depth) {
    boost::shared_ptr<ma::ItemInfo> item = entry->getItemInfo();
    line = padRight(displayPath(path), kPathColumn - 1);
    line += ' ';
    line += padRight(item ? kindName(item->getItemType()) : "-", kKindColumn - 1);
    line += ' ';
    line.append(static_cast<std::size_t>(depth) * 2, ' ');
    line += item ? escaped(item->getCaption()) : "(no record)";
    std::string const target = linkTargetOf(*entry);
    if (!target.empty()) line += " -> " + escaped(target);
    line += '\n';
    out << line;
  };
  auto leave = [](boost::shared_ptr<ma::VfsEntry> const&, int) {};
  TreeWalk(options).walk(root, enter, leave);
}

namespace {

// Appends entryJson(entry, path) on one line, written directly (a tree of
// 100,000 entries spends less than half the time this way).
void appendEntryJson(std::string& out, ma::VfsEntry& entry, std::string const& path) {
  boost::shared_ptr<ma::ItemInfo> item = entry.getItemInfo();
  out += "{\"path\":";
  appendJsonString(out, path);
  out += ",\"kind\":";
  appendJsonString(out, kindName(kindOf(item.get())));
  if (item) {
    out += ",\"caption\":";
    appendJsonString(out, item->getCaption());
    out += ",\"uuid\":";
    appendJsonString(out, item->getUUID());
    if (!item->getItemLocator().empty()) {
      out += ",\"locator\":";
      appendJsonString(out, item->getItemLocator());
    }
    if (item->getFileSize() != 0) out += ",\"size\":" + std::to_string(item->getFileSize());
    if (item->getDateNumeric() != 0) out += ",\"dateNumeric\":" + std::to_string(item->getDateNumeric());
    std::string const target = linkTargetOf(entry);
    if (!target.empty()) {
      out += ",\"linkTarget\":";
      appendJsonString(out, target);
    }
  }
  out += '}';
}

// Writes the tree of a directory as the "tree" member of a JSON document as
// the walk goes: one entry per line, its children after it.
void streamTreeJson(TextWriter& out, boost::shared_ptr<ma::VfsEntry> const& root, TreeOptions const& options) {
  std::vector<bool> hasChildren;  // per open folder: whether a child was written
  auto indent = [](std::size_t depth) { return std::string(2 + 2 * depth, ' '); };
  auto enter = [&](boost::shared_ptr<ma::VfsEntry> const& entry, std::string const& path, int depth) {
    std::size_t const level = static_cast<std::size_t>(depth);
    if (level > 0) {
      out << (hasChildren[level - 1] ? ",\n" : "\n") << indent(level);
      hasChildren[level - 1] = true;
    }
    std::string text;
    appendEntryJson(text, *entry, path);
    if (isFolder(entry)) {
      text.pop_back();  // the closing brace: the children follow
      text += ",\"children\":[";
      hasChildren.resize(level + 1);
      hasChildren[level] = false;
    }
    out << text;
  };
  auto leave = [&](boost::shared_ptr<ma::VfsEntry> const& entry, int depth) {
    if (!isFolder(entry)) return;
    std::size_t const level = static_cast<std::size_t>(depth);
    if (hasChildren[level]) out << "\n" << indent(level);
    out << "]}";
  };
  TreeWalk(options).walk(root, enter, leave);
}

}  // namespace

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
  std::string const target = linkTargetOf(*entry);
  if (!target.empty()) json["linkTarget"] = target;
  return json;
}

void printResolutionText(TextWriter& out, boost::shared_ptr<ma::VfsEntry> const& root,
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

Json resolutionJson(boost::shared_ptr<ma::VfsEntry> const& root, std::string const& path,
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
  Catalogue const catalogue = loadCatalogue(options.directory, options.scan);
  if (!output.json) {
    printTreeText(output.text, catalogue.root, options);
    return;
  }
  Json head;
  head["source"] = options.directory.empty() ? "sample" : options.directory;
  if (!options.sort.empty()) head["sort"] = options.sort;
  std::string const opening = jsonText(head, 2);
  output.text << opening.substr(0, opening.size() - 2) << ",\n  \"tree\": ";
  streamTreeJson(output.text, catalogue.root, options);
  Json skipped = Json::array();
  if (catalogue.report) {
    for (SkippedEntry const& entry : catalogue.report->skipped()) {
      skipped.push_back({{"path", entry.path}, {"reason", entry.reason}});
    }
  }
  output.text << ",\n  \"skipped\": " << jsonText(skipped, -1) << "\n}\n";
}

void runResolve(Output& output, std::string const& path, std::string const& directory,
                ScanSettings const& settings) {
  Catalogue const catalogue = loadCatalogue(directory, settings);
  Resolution const resolution = resolveOrThrow(catalogue.root, path);
  if (output.json) {
    printJson(output.text, resolutionJson(catalogue.root, path, resolution));
  } else {
    printResolutionText(output.text, catalogue.root, path, resolution);
  }
}

void runDump(Output& output, std::string const& path, std::string const& directory,
             ScanSettings const& settings) {
  Catalogue const catalogue = loadCatalogue(directory, settings);
  boost::shared_ptr<ma::VfsEntry> entry = resolveOrThrow(catalogue.root, path).entry;
  boost::shared_ptr<ma::ItemInfo> item = entry->getItemInfo();
  if (!item) throw InputError("entry " + quoted(path) + " has no item record");
  auto recorderData = boost::dynamic_pointer_cast<VfsUserDataDR>(entry->getUserData());
  std::string const where = positionalPathOf(catalogue.root, entry);
  std::vector<std::string> const dump = safeDumpLines(*item);
  if (output.json) {
    Json json = entryJson(entry, where);
    json["dump"] = dump;
    if (recorderData) json["recorderData"] = recorderDataJson(*recorderData);
    printJson(output.text, json);
    return;
  }
  output.text << displayPath(where) << "  " << kindName(item->getItemType()) << "  \""
              << escaped(item->getCaption()) << "\"\n";
  for (std::string const& line : dump) output.text << line << '\n';
  if (recorderData) printRecorderDataText(output.text, *recorderData);
}

}  // namespace ma_cli
