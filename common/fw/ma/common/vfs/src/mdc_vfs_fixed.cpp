// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The fixed tree: leaves, folders, the folders' children iterators, sorted
// iteration, positional path parts and removal.
#include "ma/mdc_vfs_fixed.h"

#include <errno.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>

#include "ma_internal/trace.h"
#include "mdc_vfs_fixed_internal.h"
#include "vfs_internal.h"

namespace ma {

using trace::kVfsCalls;
using trace::kVfsFailures;
using vfs_internal::kPathNotResolved;
using vfs_internal::ScopedMutexLock;

typedef boost::shared_ptr<ItemInfo> ItemPtr;

namespace {

// The item text a folder lookup compares: caption or identifier.
typedef std::string const& (ItemInfo::*ItemText)() const;

// The position of the first child whose item's `text` equals `wanted`, or
// the number of children; `onMismatch` sees the item of every child passed
// over. Range-checked access; every child must have an item. The caller
// holds the folder's lock.
template <typename OnMismatch>
std::size_t findFirstChild(VfsFixedFolder::Children const& children, ItemText text,
                           std::string const& wanted, OnMismatch onMismatch) {
  for (std::size_t i = 0; i < children.size(); ++i) {
    ItemPtr item = children.at(i)->getItemInfo();
    if (((*item).*text)() == wanted) return i;
    onMismatch(*item);
  }
  return children.size();
}

std::size_t findFirstChild(VfsFixedFolder::Children const& children, ItemText text,
                           std::string const& wanted) {
  return findFirstChild(children, text, wanted, [](ItemInfo const&) {});
}

// The child at `position`, or an empty pointer past the end.
boost::shared_ptr<VfsEntry> childOrEmpty(VfsFixedFolder::Children const& children,
                                         std::size_t position) {
  return position < children.size() ? children[position] : boost::shared_ptr<VfsEntry>();
}

// strtol in base 10 as on the 32-bit target, where long is 32 bits wide:
// where long is wider, a value outside the 32-bit range is reported the way
// the target's strtol reports it (the nearest limit, errno ERANGE), so that
// paths resolve alike everywhere. errno is left as it was otherwise.
//
// An index of one to nine plain digits (as child paths carry them) is read
// here directly: it cannot overflow, and the value, the end
// and the untouched errno are those strtol gives. Anything else (blanks,
// signs, longer numbers) goes to strtol.
long parseIndex(char const* text, char** end) {
  constexpr int kSafeDigits = 9;
  long value = 0;
  char const* at = text;
  char const* const limit = text + kSafeDigits;
  unsigned digit = 0;
  while (at != limit && (digit = static_cast<unsigned char>(*at) - unsigned{'0'}) <= 9) {
    value = value * 10 + static_cast<long>(digit);
    ++at;
  }
  if (at != text && !(*at >= '0' && *at <= '9')) {
    *end = const_cast<char*>(at);
    return value;
  }
  value = std::strtol(text, end, 10);
#if LONG_MAX > INT_MAX
  if (value > INT_MAX || value < INT_MIN) {
    value = value > INT_MAX ? INT_MAX : INT_MIN;
    errno = ERANGE;
  }
#endif
  return value;
}

// Whether `a` and `b` are both non-empty and have items; if so, the items.
// Asks `a` for its item before looking at `b`.
bool itemsOf(boost::shared_ptr<VfsEntry> const& a, boost::shared_ptr<VfsEntry> const& b,
             ItemPtr& itemA, ItemPtr& itemB) {
  if (!a) return false;
  itemA = a->getItemInfo();
  if (!itemA || !b) return false;
  itemB = b->getItemInfo();
  return static_cast<bool>(itemB);
}

// The orders that a sort criteria string selects.
enum class SortOrder { kCaptionAscending, kCaptionDescending, kDateDescending };

SortOrder sortOrderFor(std::string const& criteria) {
  if (criteria == "-dc:title") return SortOrder::kCaptionDescending;
  if (criteria == "+dc:title") return SortOrder::kCaptionAscending;
  return SortOrder::kDateDescending;
}

// Below these many keys a comparison sort takes fewer instructions than the
// radix sort (measured by bench/sort_bench): dates skip most bytes of their
// key, caption heads use all eight.
constexpr std::size_t kDateRadixMinimum = 256;
constexpr std::size_t kCaptionRadixMinimum = 16384;

// Sorts `keys` by their unsigned 64-bit `key` member, equal keys in their
// present order: a least-significant-digit radix sort, one byte per pass,
// that skips the bytes in which all keys agree (dates share their high
// bytes). REQUIRES: at least one key.
template <typename Key>
void radixSortByKey(std::vector<Key>& keys) {
  std::size_t counts[8][256] = {};
  for (Key const& key : keys) {
    for (int byte = 0; byte < 8; ++byte) ++counts[byte][(key.key >> (8 * byte)) & 0xFF];
  }
  std::vector<Key> scratch(keys.size());
  for (int byte = 0; byte < 8; ++byte) {
    std::size_t* count = counts[byte];
    if (count[(keys[0].key >> (8 * byte)) & 0xFF] == keys.size()) continue;  // all agree
    std::size_t offset = 0;
    for (std::size_t& bucket : counts[byte]) {
      const std::size_t size = bucket;
      bucket = offset;
      offset += size;
    }
    for (Key const& key : keys) scratch[count[(key.key >> (8 * byte)) & 0xFF]++] = key;
    keys.swap(scratch);
  }
}

// A child's sort key, taken from its item once, and its list position.
// Ascending keys give the order wanted: for dates the date mapped to an
// unsigned number that orders newest first (newestFirstKey()), for captions
// the caption's first eight bytes (captionHead(), inverted for the
// descending order), where ties on the head are decided by the captions.
// Sixteen bytes, so that the sorts move little.
struct SortKey {
  std::uint64_t key;
  std::size_t position;
};

// The first eight bytes of `caption` as a big-endian number, padded with
// zero bytes. Where two heads differ, they order the captions as the byte-wise
// comparison does; equal heads leave the decision to the whole captions.
std::uint64_t captionHead(std::string const& caption) {
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    const unsigned char byte = i < caption.size() ? static_cast<unsigned char>(caption[i]) : 0;
    head = head << 8 | byte;
  }
  return head;
}

// Sorts caption keys: by caption (byte-wise, ascending or `descending`),
// equal captions by list position; items[position] holds each caption. A
// radix sort orders the heads (stable, so positions stay ascending among
// equal heads); each run of equal heads is then ordered stably by the whole
// captions. Smaller lists go to a comparison sort with the same order.
void sortCaptionKeys(std::vector<SortKey>& keys, std::vector<ItemPtr> const& items,
                     bool descending) {
  // Below, above or equal to 0 as `a`'s caption sorts before, after or with
  // `b`'s in the order wanted.
  auto byCaption = [&items, descending](SortKey const& a, SortKey const& b) {
    const int order = items[a.position]->getCaption().compare(items[b.position]->getCaption());
    return descending ? -order : order;
  };
  if (keys.size() < kCaptionRadixMinimum) {
    std::sort(keys.begin(), keys.end(), [&byCaption](SortKey const& a, SortKey const& b) {
      if (a.key != b.key) return a.key < b.key;
      const int order = byCaption(a, b);
      return order != 0 ? order < 0 : a.position < b.position;
    });
    return;
  }
  radixSortByKey(keys);
  // Within a run positions ascend already: a stable sort keeps them so for
  // equal captions.
  for (auto run = keys.begin(); run != keys.end();) {
    auto runEnd = run + 1;
    while (runEnd != keys.end() && runEnd->key == run->key) ++runEnd;
    if (runEnd - run > 1) {
      std::stable_sort(run, runEnd, [&byCaption](SortKey const& a, SortKey const& b) {
        return byCaption(a, b) < 0;
      });
    }
    run = runEnd;
  }
}

// The date as an unsigned number that orders newest first: the sign bit
// flipped (so signed order becomes unsigned order), then every bit inverted.
std::uint64_t newestFirstKey(long long date) {
  return ~(static_cast<std::uint64_t>(date) ^ (std::uint64_t{1} << 63));
}

// Sorts `keys` by ascending key, equal keys in their present order.
void sortDateKeys(std::vector<SortKey>& keys) {
  if (keys.size() < kDateRadixMinimum) {
    std::sort(keys.begin(), keys.end(), [](SortKey const& a, SortKey const& b) {
      return a.key != b.key ? a.key < b.key : a.position < b.position;
    });
    return;
  }
  radixSortByKey(keys);
}

// `children` sorted in `order` by the keys that the comparators
// (compareCaption*, compareDate*) compare.
//
// Those comparators call an empty child, or one without item, equal to
// every other child. That is not a strict weak ordering, and std::sort
// given one may read outside the range. So such children are set apart and
// placed last, in list order (their place is otherwise unspecified); the
// others are sorted with ties broken by list position, a strict total order
// that is also stable. Each item is asked for its key once, not once per
// comparison. Both orders radix-sort a 64-bit key (the date, the caption's
// first bytes), which is stable, so ties keep list order as well.
VfsFixedFolder::Children sortedChildren(VfsFixedFolder::Children const& children,
                                        SortOrder order) {
  std::vector<std::size_t> keyless;
  VfsFixedFolder::Children sorted;
  sorted.reserve(children.size());
  if (order == SortOrder::kDateDescending) {
    std::vector<SortKey> keys;
    keys.reserve(children.size());
    for (std::size_t i = 0; i < children.size(); ++i) {
      ItemPtr item;
      if (children[i]) item = children[i]->getItemInfo();
      if (item) {
        keys.push_back({newestFirstKey(item->getDateNumeric()), i});
      } else {
        keyless.push_back(i);
      }
    }
    sortDateKeys(keys);
    for (SortKey const& key : keys) sorted.push_back(children[key.position]);
  } else {
    const bool descending = order == SortOrder::kCaptionDescending;
    std::vector<ItemPtr> items(children.size());  // keep the captions alive
    std::vector<SortKey> keys;
    keys.reserve(children.size());
    for (std::size_t i = 0; i < children.size(); ++i) {
      if (children[i]) items[i] = children[i]->getItemInfo();
      if (items[i]) {
        const std::uint64_t head = captionHead(items[i]->getCaption());
        keys.push_back({descending ? ~head : head, i});
      } else {
        keyless.push_back(i);
      }
    }
    sortCaptionKeys(keys, items, descending);
    for (SortKey const& key : keys) sorted.push_back(children[key.position]);
  }
  for (std::size_t position : keyless) sorted.push_back(children[position]);
  return sorted;
}

}  // namespace

namespace vfs_internal {

int fetchIndexedChild(VfsFixedFolder::Children const& children, std::size_t position,
                      std::string const& path, std::string const& index,
                      boost::shared_ptr<VfsEntry>& child) {
  try {
    child = children.at(position);
  } catch (std::out_of_range const&) {
    MA_TRACE_AT(kVfsFailures, __LINE__, "resolvePathPart",
                "Path: \"%s\" with path part \"%s\" specifies child that is out of range by "
                "exception.\n",
                path.c_str(), index.c_str());
    return kPathNotResolved;
  }
  return 0;
}

}  // namespace vfs_internal

// ---------------------------------------------------------------------------
// Leaf

VfsFixedEntry::VfsFixedEntry(boost::shared_ptr<ItemInfo> item,
                             boost::shared_ptr<VfsUserData> userData)
    : m_item(std::move(item)), m_userData(std::move(userData)) {}

VfsFixedEntry::~VfsFixedEntry() {}

boost::shared_ptr<VfsIterator> VfsFixedEntry::getIterator(VfsSearchCriteria const& /*search*/,
                                                          VfsOrderCriteria const& /*order*/,
                                                          VfsFilterCriteria const& /*filter*/) {
  return boost::shared_ptr<VfsIterator>();
}

boost::shared_ptr<ItemInfo> VfsFixedEntry::getItemInfo() { return m_item; }

boost::shared_ptr<VfsUserData> VfsFixedEntry::getUserData() { return m_userData; }

// ---------------------------------------------------------------------------
// Children iterators

VfsFixedFolder::ChildrenIterator::ChildrenIterator(boost::shared_ptr<VfsEntry> entry,
                                                   Children::const_iterator begin,
                                                   Children::const_iterator end)
    : VfsIterator(entry),
      m_folder(entry.get()),
      m_begin(begin),
      m_end(end),
      m_current(begin),
      m_index(0) {}

VfsFixedFolder::ChildrenIterator::~ChildrenIterator() {}

void VfsFixedFolder::ChildrenIterator::getNTotal(IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 55, __func__, "Called.\n");
  ScopedMutexLock lock(mutexOf(*m_folder));
  done(static_cast<int>(m_end - m_begin));
}

void VfsFixedFolder::ChildrenIterator::rewind(IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 62, __func__, "Called.\n");
  m_current = m_begin;
  m_index = 0;
  done(0);
}

void VfsFixedFolder::ChildrenIterator::advance(IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 71, __func__, "Called.\n");
  ++m_current;  // unchecked: callers stay within the count
  ++m_index;
  done(m_index);
}

void VfsFixedFolder::ChildrenIterator::seekTo(int position, IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 80, __func__, "Called.\n");
  m_index = position < 1 ? 0 : position;
  m_current = m_begin + m_index;  // unchecked: callers stay within the count
  done(m_index);
}

void VfsFixedFolder::ChildrenIterator::getCurrentChild(EntryCallback done) {
  MA_TRACE_AT(kVfsCalls, 94, __func__, "Called.\n");
  done(m_current == m_end ? boost::shared_ptr<VfsEntry>() : *m_current);
}

void VfsFixedFolder::ChildrenIterator::getCurrentChildPath(std::string path, PathCallback done) {
  MA_TRACE_AT(kVfsCalls, 105, __func__, "Called.\n");
  done(path + "$" + std::to_string(m_index));
}

VfsFixedFolder::SharedVectorIterator::SharedVectorIterator(boost::shared_ptr<VfsEntry> entry,
                                                           boost::shared_ptr<const Children> vector)
    : ChildrenIterator(std::move(entry), vector->begin(), vector->end()),
      m_vector(std::move(vector)) {}

VfsFixedFolder::SharedVectorIterator::~SharedVectorIterator() {}

// ---------------------------------------------------------------------------
// Folder

VfsFixedFolder::VfsFixedFolder(boost::shared_ptr<ItemInfo> item) : m_item(std::move(item)) {}

VfsFixedFolder::~VfsFixedFolder() {}

boost::shared_ptr<VfsIterator> VfsFixedFolder::getIterator() {
  MA_TRACE_AT(kVfsCalls, 157, __func__, "Called.\n");
  return boost::shared_ptr<VfsIterator>(
      new ChildrenIterator(shared_from_this(), m_children.cbegin(), m_children.cend()));
}

boost::shared_ptr<VfsIterator> VfsFixedFolder::getIterator(VfsSearchCriteria const& /*search*/,
                                                           VfsOrderCriteria const& /*order*/,
                                                           VfsFilterCriteria const& /*filter*/) {
  return boost::shared_ptr<VfsIterator>();
}

boost::shared_ptr<ItemInfo> VfsFixedFolder::getItemInfo() { return m_item; }

boost::shared_ptr<VfsUserData> VfsFixedFolder::getUserData() {
  return boost::shared_ptr<VfsUserData>();
}

bool VfsFixedFolder::hasIterator() { return true; }

void VfsFixedFolder::setAttribute(std::string const& name, std::string const& value) {
  VfsEntry::setAttribute(name, value);
}

int VfsFixedFolder::addEntry(boost::shared_ptr<VfsEntry> entry) {
  ScopedMutexLock lock(mutexOf(*this));
  m_children.push_back(std::move(entry));
  return 0;
}

int VfsFixedFolder::resolvePathPart(boost::shared_ptr<VfsEntry>& child, std::string& rest,
                                    std::string& partInfo, std::string path, std::string query) {
  // The base step understands the empty part and queries (parts that begin
  // with a letter); it declines anything else without looking further, so
  // it is asked only about those (which spares it copies of both texts).
  // "$" and digits, with which child paths begin, are letters in no locale:
  // for them the classification is not asked.
  const unsigned char first = path.empty() ? 0 : static_cast<unsigned char>(path[0]);
  if (path.empty() || (first != '$' && !(first >= '0' && first <= '9') && std::isalpha(first))) {
    const int understood = VfsEntry::resolvePathPart(child, rest, partInfo, path, query);
    if (understood >= 0) return understood;
  }
  rest.clear();
  child.reset();
  // The part is read in place, without copies: `part` is the text after a
  // leading "$" (all messages show that text), `separator` the next "$"
  // or the end. An empty part never gets here: the base step names this
  // folder for it.
  char const* const part = path.c_str() + (first == '$' ? 1 : 0);
  char const* const partEnd = path.c_str() + path.size();
  // The index text ends at `separator`, where any number ends as well, so
  // the number is read from `part` itself, before the separator is sought;
  // an empty index text (the part is "$", or "$" follows at once) is not
  // read at all. errno is deliberately not cleared first: an ERANGE left
  // over from earlier makes an index at a 32-bit limit fail as unparsable.
  char* end = nullptr;
  const bool noIndex = part == partEnd || *part == '$';
  const long position = noIndex ? 0 : parseIndex(part, &end);
  // No "$" comes before the number's end: the search starts there (at once
  // done for a number followed by "$" or the end, as in child paths).
  char const* separator = noIndex ? part : end;
  if (separator != partEnd && *separator != '$') {
    separator = static_cast<char const*>(
        std::memchr(separator, '$', static_cast<std::size_t>(partEnd - separator)));
    if (separator == nullptr) separator = partEnd;
  }
  if (separator == part) {
    MA_TRACE_AT(kVfsFailures, __LINE__, __func__, "Invalid path: \"%s\".\n", part);
    return kPathNotResolved;
  }
  // A value at a 32-bit limit is rare: errno is read only then.
  if ((position == INT_MAX || position == INT_MIN) && errno == ERANGE) {
    MA_TRACE_AT(kVfsFailures, __LINE__, __func__, "Error parsing number in path part \"%s\" #1.\n",
                part);
    return kPathNotResolved;
  }
  if (end == part) {
    MA_TRACE_AT(kVfsFailures, __LINE__, __func__, "Error parsing number in path part \"%s\" #2.\n",
                part);
    return kPathNotResolved;
  }
  // "$" and the consumed characters (blanks, sign too): in one append when
  // the part itself began with that "$".
  if (part != path.c_str()) {
    partInfo.append(part - 1, static_cast<std::size_t>(end - part) + 1);
  } else {
    partInfo += '$';
    partInfo.append(part, static_cast<std::size_t>(end - part));
  }
  if (position < 0 || position >= static_cast<long>(m_children.size())) {
    MA_TRACE_AT(kVfsFailures, __LINE__, __func__,
                "Path: \"%s\" with path part \"%s\" specifies child that is out of range.\n",
                part, std::string(part, separator).c_str());
    return kPathNotResolved;
  }
  if (static_cast<std::size_t>(position) < m_children.size()) {
    child = m_children[static_cast<std::size_t>(position)];
  } else {
    // The list shrank since the check above (a concurrent removal): the
    // range-checked fetch reports it.
    const int fetched = vfs_internal::fetchIndexedChild(
        m_children, static_cast<std::size_t>(position), std::string(part),
        std::string(part, separator), child);
    if (fetched != 0) return fetched;
  }
  // `rest` is empty here: appending is assigning, without the general
  // replacement.
  if (separator != partEnd) {
    rest.append(separator + 1, static_cast<std::size_t>(partEnd - separator - 1));
  }
  return 0;
}

boost::shared_ptr<VfsIterator> VfsFixedFolder::getSortedIterator(std::string const& criteria) {
  // Read without lock: callers exclude concurrent changes of the folder.
  boost::shared_ptr<const Children> sorted(
      new Children(sortedChildren(m_children, sortOrderFor(criteria))));
  return boost::shared_ptr<VfsIterator>(new SharedVectorIterator(shared_from_this(), sorted));
}

bool VfsFixedFolder::compareCaptionInc(boost::shared_ptr<VfsEntry> a,
                                       boost::shared_ptr<VfsEntry> b) {
  ItemPtr itemA, itemB;
  return itemsOf(a, b, itemA, itemB) && itemA->getCaption() < itemB->getCaption();
}

bool VfsFixedFolder::compareCaptionDec(boost::shared_ptr<VfsEntry> a,
                                       boost::shared_ptr<VfsEntry> b) {
  ItemPtr itemA, itemB;
  return itemsOf(a, b, itemA, itemB) && itemA->getCaption() > itemB->getCaption();
}

bool VfsFixedFolder::compareDateInc(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b) {
  ItemPtr itemA, itemB;
  return itemsOf(a, b, itemA, itemB) && itemA->getDateNumeric() < itemB->getDateNumeric();
}

bool VfsFixedFolder::compareDateDec(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b) {
  ItemPtr itemA, itemB;
  return itemsOf(a, b, itemA, itemB) && itemB->getDateNumeric() < itemA->getDateNumeric();
}

boost::shared_ptr<VfsEntry> VfsFixedFolder::findEntry(std::string const& caption) {
  ScopedMutexLock lock(mutexOf(*this));
  return childOrEmpty(m_children, findFirstChild(m_children, &ItemInfo::getCaption, caption));
}

boost::shared_ptr<VfsEntry> VfsFixedFolder::findEntrybyUUID(std::string const& uuid) {
  ScopedMutexLock lock(mutexOf(*this));
  return childOrEmpty(m_children, findFirstChild(m_children, &ItemInfo::getUUID, uuid));
}

int VfsFixedFolder::removeEntry(boost::shared_ptr<VfsEntry> entry) {
  ScopedMutexLock lock(mutexOf(*this));
  const std::string caption = entry->getItemInfo()->getCaption();
  const std::size_t found = findFirstChild(m_children, &ItemInfo::getCaption, caption);
  if (found < m_children.size()) m_children.erase(m_children.begin() + found);
  return 0;
}

int VfsFixedFolder::removeEntryByUUID(boost::shared_ptr<VfsEntry> entry) {
  MA_TRACE_AT(kVfsCalls, __LINE__, __func__, "Called.\n");
  ScopedMutexLock lock(mutexOf(*this));
  const std::string uuid = entry->getItemInfo()->getUUID();
  MA_TRACE_AT(kVfsCalls, __LINE__, __func__, "Attempting to remove: '%s'.\n", uuid.c_str());
  const std::size_t found =
      findFirstChild(m_children, &ItemInfo::getUUID, uuid, [](ItemInfo const& passed) {
        MA_TRACE_AT(kVfsCalls, __LINE__, "removeEntryByUUID", "Traversing: '%s' '%s'.\n",
                    passed.getCaption().c_str(), passed.getUUID().c_str());
      });
  if (found < m_children.size()) {
    ItemPtr removed = m_children[found]->getItemInfo();
    MA_TRACE_AT(kVfsCalls, __LINE__, __func__, "Removing: '%s' '%s'.\n",
                removed->getCaption().c_str(), removed->getUUID().c_str());
    m_children.erase(m_children.begin() + found);
  }
  return 0;
}

int VfsFixedFolder::removeAllEntries() {
  ScopedMutexLock lock(mutexOf(*this));
  m_children.clear();  // releases the children in list order, keeps the storage
  return 0;
}

}  // namespace ma
