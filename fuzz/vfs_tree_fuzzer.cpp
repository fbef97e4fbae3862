// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// A fixed folder driven by an arbitrary script, checked against a model.
//
// Each step of the input is one operation on one folder: add a leaf, a
// small sub-folder or a child already present; remove by caption, by
// identifier or everything; look up by caption or identifier; walk a fresh
// iterator; walk a sorted iterator; seek; resolve a path ("$i", "$i$j",
// "UUID..." and malformed ones); look up by identifier through findUuid.
// The fuzzer keeps the list of children it expects (a plain vector) and
// checks every answer against it. Captions, identifiers and dates come from
// small sets, so that duplicates and ties are common.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "zel/zel_standin.h"

namespace {

typedef boost::shared_ptr<ma::VfsEntry> EntryPtr;
typedef boost::shared_ptr<ma::ItemInfo> ItemPtr;

void check(bool condition) {
  if (!condition) std::abort();
}

// A fixed folder whose criteria iterator walks its children, so that
// identifier lookups (findUuid and "UUID..." path parts) reach them.
class QueryableFolder : public ma::VfsFixedFolder {
 public:
  explicit QueryableFolder(ItemPtr item) : ma::VfsFixedFolder(item) {}
  using ma::VfsFixedFolder::getIterator;
  boost::shared_ptr<ma::VfsIterator> getIterator(ma::VfsSearchCriteria const&,
                                                 ma::VfsOrderCriteria const&,
                                                 ma::VfsFilterCriteria const&) override {
    return getIterator();
  }
};

const char* const kCaptions[] = {"", "a", "b", "ab", "B", " a", "a ", "\xc3\xa9"};
const char* const kUuids[] = {"", "UUID1", "UUID2", "u", "UUID1 ", "UUID"};

// One child as the model knows it.
struct Child {
  EntryPtr entry;
  std::string caption;
  std::string uuid;
  long long date;
  std::vector<EntryPtr> children;  // a sub-folder's, fixed at creation
};

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  bool empty() const { return size_ == 0; }
  std::uint8_t byte() { return size_ == 0 ? 0 : (--size_, *data_++); }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

Child makeChild(Input& input) {
  const std::uint8_t shape = input.byte();
  Child child;
  child.caption = kCaptions[shape % 8];
  child.uuid = kUuids[(shape >> 3) % 6];
  child.date = static_cast<long long>(input.byte() % 4) - 1;
  if ((shape & 0xC0) == 0xC0) {
    auto* folder = new ma::VfsFixedFolder(ItemPtr(new ma::FolderItemInfo(child.caption, child.uuid)));
    child.entry.reset(folder);
    folder->getItemInfo()->setDateNumeric(child.date);
    const int count = input.byte() % 4;
    for (int i = 0; i < count; ++i) {
      EntryPtr leaf(new ma::VfsFixedEntry(ItemPtr(new ma::MusicItemInfo("leaf", "UUID-leaf")),
                                          boost::shared_ptr<ma::VfsUserData>()));
      folder->addEntry(leaf);
      child.children.push_back(leaf);
    }
  } else {
    ItemPtr item(new ma::VideoItemInfo(child.caption, child.uuid));
    item->setDateNumeric(child.date);
    child.entry.reset(new ma::VfsFixedEntry(item, boost::shared_ptr<ma::VfsUserData>()));
  }
  return child;
}

// A probe naming what a removal looks for.
EntryPtr probe(const std::string& caption, const std::string& uuid) {
  return EntryPtr(new ma::VfsFixedEntry(ItemPtr(new ma::MusicItemInfo(caption, uuid)),
                                        boost::shared_ptr<ma::VfsUserData>()));
}

// The position of the first child whose caption (identifier) is `text`.
std::size_t firstWith(const std::vector<Child>& model, const std::string Child::*member,
                      const std::string& text) {
  for (std::size_t i = 0; i < model.size(); ++i) {
    if (model[i].*member == text) return i;
  }
  return model.size();
}

EntryPtr entryAt(const std::vector<Child>& model, std::size_t position) {
  return position < model.size() ? model[position].entry : EntryPtr();
}

// Walks `iterator` from a rewind and checks that it yields `expected`, with
// the child paths of a fixed folder; then seeks to `seek` and back.
void checkWalk(ma::VfsIterator& iterator, const std::vector<EntryPtr>& expected, int seek) {
  const int total = static_cast<int>(expected.size());
  check(iterator.getNTotal() == total);
  check(iterator.rewind() == 0);
  for (int i = 0; i < total; ++i) {
    check(iterator.getCurrentChild() == expected[i]);
    check(iterator.getCurrentChildPath("p") == "p$" + std::to_string(i));
    check(iterator.advance() == i + 1);
  }
  check(!iterator.getCurrentChild());
  const int position = total == 0 ? 0 : seek % (total + 1);
  check(iterator.seekTo(position) == position);
  check(iterator.getCurrentChild() == (position < total ? expected[position] : EntryPtr()));
  check(iterator.seekTo(-seek) == 0);
  check(iterator.getCurrentChild() == (total > 0 ? expected[0] : EntryPtr()));
}

std::vector<EntryPtr> sortedModel(const std::vector<Child>& model, const std::string& criteria) {
  std::vector<const Child*> order;
  for (const Child& child : model) order.push_back(&child);
  std::stable_sort(order.begin(), order.end(), [&criteria](const Child* a, const Child* b) {
    if (criteria == "+dc:title") return a->caption < b->caption;
    if (criteria == "-dc:title") return a->caption > b->caption;
    return a->date > b->date;
  });
  std::vector<EntryPtr> entries;
  for (const Child* child : order) entries.push_back(child->entry);
  return entries;
}

// The entry a path made of index parts names, by the model; empty where an
// index is out of range or a leaf is asked for a child.
EntryPtr resolveByModel(const std::vector<Child>& model, long first, long second, bool twoParts) {
  if (first < 0 || first >= static_cast<long>(model.size())) return EntryPtr();
  const Child& child = model[static_cast<std::size_t>(first)];
  if (!twoParts) return child.entry;
  const bool isFolder = !!boost::dynamic_pointer_cast<ma::VfsFixedFolder>(child.entry);
  if (!isFolder || second < 0 || second >= static_cast<long>(child.children.size())) {
    return EntryPtr();
  }
  return child.children[static_cast<std::size_t>(second)];
}

void checkPath(ma::VfsFixedFolder& folder, const std::vector<Child>& model, Input& input) {
  const std::uint8_t shape = input.byte();
  const long first = static_cast<long>(input.byte() % 12) - 2;
  const long second = static_cast<long>(input.byte() % 6) - 1;
  switch (shape % 5) {
    case 0:
      check(folder.resolvePath("$" + std::to_string(first)) ==
            resolveByModel(model, first, 0, false));
      break;
    case 1:
      check(folder.resolvePath("$" + std::to_string(first) + "$" + std::to_string(second)) ==
            resolveByModel(model, first, second, true));
      break;
    case 2:  // without the leading "$", and with trailing characters
      check(folder.resolvePath(std::to_string(first) + "x") ==
            resolveByModel(model, first, 0, false));
      break;
    case 3: {  // an identifier query, passed whole to findUuid
      const std::string uuid = kUuids[shape / 5 % 6];
      const bool query = uuid.compare(0, 4, "UUID") == 0;
      const EntryPtr expected = query ? entryAt(model, firstWith(model, &Child::uuid, uuid)) : EntryPtr();
      if (query) check(folder.resolvePath(uuid) == expected);
      check(folder.findUuid(uuid) == entryAt(model, firstWith(model, &Child::uuid, uuid)));
      break;
    }
    default: {  // malformed parts never resolve
      static const char* const kBad[] = {"$", "$$", "$x", "$2147483648", "x1", "$ ", "-"};
      check(!folder.resolvePath(kBad[shape / 5 % 7]));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (zel_standin::setThreshold(375, 0), true);
  (void)quiet;
  Input input(data, size);
  const boost::shared_ptr<QueryableFolder> folder(
      new QueryableFolder(ItemPtr(new ma::FolderItemInfo("root", "UUID-root"))));
  std::vector<Child> model;

  while (!input.empty()) {
    const std::uint8_t operation = input.byte();
    switch (operation % 12) {
      case 0:
      case 1: {
        Child child = makeChild(input);
        check(folder->addEntry(child.entry) == 0);
        model.push_back(child);
        break;
      }
      case 2:  // a child already present, once more
        if (!model.empty()) {
          const Child again = model[input.byte() % model.size()];
          check(folder->addEntry(again.entry) == 0);
          model.push_back(again);
        }
        break;
      case 3: {
        const std::string caption = kCaptions[input.byte() % 8];
        check(folder->removeEntry(probe(caption, "any")) == 0);
        const std::size_t at = firstWith(model, &Child::caption, caption);
        if (at < model.size()) model.erase(model.begin() + static_cast<long>(at));
        break;
      }
      case 4: {
        const std::string uuid = kUuids[input.byte() % 6];
        check(folder->removeEntryByUUID(probe("any", uuid)) == 0);
        const std::size_t at = firstWith(model, &Child::uuid, uuid);
        if (at < model.size()) model.erase(model.begin() + static_cast<long>(at));
        break;
      }
      case 5:
        if (input.byte() % 4 == 0) {  // rarely: everything goes
          check(folder->removeAllEntries() == 0);
          model.clear();
        }
        break;
      case 6: {
        const std::string caption = kCaptions[input.byte() % 8];
        check(folder->findEntry(caption) == entryAt(model, firstWith(model, &Child::caption, caption)));
        break;
      }
      case 7: {
        const std::string uuid = kUuids[input.byte() % 6];
        check(folder->findEntrybyUUID(uuid) == entryAt(model, firstWith(model, &Child::uuid, uuid)));
        break;
      }
      case 8: {
        std::vector<EntryPtr> entries;
        for (const Child& child : model) entries.push_back(child.entry);
        checkWalk(*folder->getIterator(), entries, input.byte());
        break;
      }
      case 9: {
        static const char* const kCriteria[] = {"+dc:title", "-dc:title", "", "dc:date"};
        const std::string criteria = kCriteria[input.byte() % 4];
        checkWalk(*folder->getSortedIterator(criteria), sortedModel(model, criteria), input.byte());
        break;
      }
      default:
        checkPath(*folder, model, input);
    }
  }
  std::vector<EntryPtr> entries;
  for (const Child& child : model) entries.push_back(child.entry);
  checkWalk(*folder->getIterator(), entries, 0);
  return 0;
}
