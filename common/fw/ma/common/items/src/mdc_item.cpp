// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The item record: field store, facade accessors and the nine kinds.
//
// The accessors are generated from the library's private field list
// (ma_internal/item_fields.h), so that each field's behaviour is written down
// once; the public header spells the declarations out. The text dump and the
// comparison have their own orders and live in item_dump.cpp and
// item_compare.cpp.
#include "ma/mdc_item.h"

#include <type_traits>
#include <typeinfo>

#include "ma_internal/item_fields.h"
#include "ma_internal/trace.h"

namespace ma {

const unsigned long long ItemInfo::zero = 0;
const long long ItemInfo::i64zero = 0;
const int ItemInfo::i32zero = 0;
const unsigned int ItemInfo::u32zero = 0;
const std::string ItemInfo::empty;
const std::string ItemInfo::ItemImpl::empty;

namespace {

// "<accessor>(): impl is NULL": a facade accessor was used without store.
void reportMissingStore(const char* accessor) {
  MA_TRACE(trace::kItemFailures, "%s(): impl is NULL\n", accessor);
}

// The item sub-type accessors report a missing store with a located line.
void reportMissingSubTypeStore(const char* accessor, int line) {
  MA_TRACE_AT(trace::kItemFailures, line, accessor, "Impl is NULL.\n");
}

// The kind's own store, or null (with the getImpl trace line) when `impl` is
// null or of another class.
// A store of exactly the kind's class (as the kind's constructors make it)
// is recognised by its type alone; only another class searches the
// hierarchy.
template <class Store, class Base>
Store* storeOfKind(Base* impl) {
  if (impl != nullptr && typeid(*impl) == typeid(Store)) return static_cast<Store*>(impl);
  Store* store = dynamic_cast<Store*>(impl);
  if (store == nullptr) reportMissingStore("getImpl");
  return store;
}

// A copy of `source` as a `Store`, or null when it is null or not a `Store`.
template <class Store>
ItemInfo::ItemImpl* copyStoreOfKind(const ItemInfo::ItemImpl* source) {
  const Store* store = dynamic_cast<const Store*>(source);
  return store == nullptr ? nullptr : new Store(*store);
}

}  // namespace

// ---------------------------------------------------------------------------
// Field store

// Every member gets the initial value of its row, in the order of the list:
// with -Wreorder (a build error under MA_COMMON_WERROR) the header's member
// order must be the list's. The item type is the first row and opens the
// initialiser list; every other row adds ", member(initial)".
#define MA_STORE_INITIALISE_FIRST(member, initial) member(initial)
#define MA_STORE_INITIALISE_NEXT(member, initial) , member(initial)
#define MA_STORE_INITIALISE_TYPE MA_STORE_INITIALISE_FIRST
#define MA_STORE_INITIALISE_SUBTYPE MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_UUID MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_STR MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_I32 MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_U32 MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_I64 MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_U64 MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_BOOL MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE_WORD MA_STORE_INITIALISE_NEXT
#define MA_STORE_INITIALISE(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_STORE_INITIALISE_##kind(member, initial)

// Each member declared in the header has the type of its row.
#define MA_STORE_CHECK_TYPE(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  static_assert(std::is_same<decltype(member), MA_ITEM_FIELD_TYPE_##kind>::value,         \
                #member " is declared with the type of its field kind");

ItemInfo::ItemImpl::ItemImpl(itemType type, std::string const& caption, std::string const& uuid)
    : MA_ITEM_FIELDS(MA_STORE_INITIALISE) {
  MA_ITEM_FIELDS(MA_STORE_CHECK_TYPE)
}

ItemInfo::ItemImpl::ItemImpl(ItemImpl const& other) = default;

ItemInfo::ItemImpl::~ItemImpl() = default;

std::string const& ItemInfo::ItemImpl::getActor() const { return empty; }
void ItemInfo::ItemImpl::setActor(std::string const&) {}
std::string const& ItemInfo::ItemImpl::getDirector() const { return empty; }
void ItemInfo::ItemImpl::setDirector(std::string const&) {}

std::string ItemInfo::ItemImpl::stripValue(std::string const& value) {
  static const char kBlanks[] = " \t\n\r";
  const std::string::size_type first = value.find_first_not_of(kBlanks);
  if (first == std::string::npos) return std::string();
  const std::string::size_type last = value.find_last_not_of(kBlanks);
  return value.substr(first, last - first + 1);
}

#define MA_STORES_RAW(value) (value)
#define MA_STORES_STRIP(value) stripValue(value)

#define MA_STORE_DEFINE_VALUE(type, member, get, set, q, stores) \
  type const& ItemInfo::ItemImpl::get() q { return member; }   \
  void ItemInfo::ItemImpl::set(type const& value) { member = MA_STORES_##stores(value); }
#define MA_STORE_DEFINE_TYPE(member, get, set, q, stores)             \
  itemType const& ItemInfo::ItemImpl::get() const { return member; } \
  void ItemInfo::ItemImpl::set(itemType value) { member = value; }
#define MA_STORE_DEFINE_UUID(member, get, set, q, stores) \
  std::string const& ItemInfo::ItemImpl::get() const { return member; }
#define MA_STORE_DEFINE_BOOL(member, get, set, q, stores)    \
  bool ItemInfo::ItemImpl::get() const { return member; } \
  void ItemInfo::ItemImpl::set(bool value) { member = value; }
#define MA_STORE_DEFINE_WORD(member, get, set, q, stores)
#define MA_STORE_DEFINE_SUBTYPE(...) MA_STORE_DEFINE_VALUE(std::string, __VA_ARGS__)
#define MA_STORE_DEFINE_STR(...) MA_STORE_DEFINE_VALUE(std::string, __VA_ARGS__)
#define MA_STORE_DEFINE_I32(...) MA_STORE_DEFINE_VALUE(int, __VA_ARGS__)
#define MA_STORE_DEFINE_U32(...) MA_STORE_DEFINE_VALUE(unsigned int, __VA_ARGS__)
#define MA_STORE_DEFINE_I64(...) MA_STORE_DEFINE_VALUE(long long, __VA_ARGS__)
#define MA_STORE_DEFINE_U64(...) MA_STORE_DEFINE_VALUE(unsigned long long, __VA_ARGS__)
#define MA_STORE_DEFINE(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_STORE_DEFINE_##kind(member, storeGet, storeSet, q, stores)

MA_ITEM_FIELDS(MA_STORE_DEFINE)

// ---------------------------------------------------------------------------
// Facade

ItemInfo::ItemInfo() : impl(nullptr) {}

ItemInfo::ItemInfo(ItemInfo const&) : impl(nullptr) {}

ItemInfo::ItemInfo(ItemImpl* store) : impl(store) {}

ItemInfo::~ItemInfo() = default;

#define MA_FACADE_DEFINE_VALUE(type, nullResult, get, set, storeGet, storeSet)         \
  type const& ItemInfo::get() const {                                                \
    if (impl == nullptr) {                                                           \
      reportMissingStore(#get);                                                      \
      return nullResult;                                                             \
    }                                                                                \
    return impl->storeGet();                                                         \
  }                                                                                  \
  void ItemInfo::set(type const& value) {                                            \
    if (impl == nullptr) {                                                           \
      reportMissingStore(#set);                                                      \
      return;                                                                        \
    }                                                                                \
    impl->storeSet(value);                                                           \
  }
#define MA_FACADE_DEFINE_TYPE(get, set, storeGet, storeSet) \
  itemType ItemInfo::get() const {                         \
    if (impl == nullptr) {                                 \
      reportMissingStore(#get);                            \
      return ITEM_TYPE_UNKNOWN;                            \
    }                                                      \
    return impl->storeGet();                               \
  }
#define MA_FACADE_DEFINE_UUID(get, set, storeGet, storeSet) \
  std::string const& ItemInfo::get() const {               \
    if (impl == nullptr) {                                 \
      reportMissingStore(#get);                            \
      return empty;                                        \
    }                                                      \
    return impl->storeGet();                               \
  }
#define MA_FACADE_DEFINE_BOOL(get, set, storeGet, storeSet) \
  bool ItemInfo::get() const {                             \
    if (impl == nullptr) {                                 \
      reportMissingStore(#get);                            \
      return false;                                        \
    }                                                      \
    return impl->storeGet();                               \
  }                                                        \
  void ItemInfo::set(bool value) {                         \
    if (impl == nullptr) {                                 \
      reportMissingStore(#set);                            \
      return;                                              \
    }                                                      \
    impl->storeSet(value);                                 \
  }
#define MA_FACADE_DEFINE_WORD(get, set, storeGet, storeSet)
#define MA_FACADE_DEFINE_SUBTYPE(get, set, storeGet, storeSet)  // written out below
#define MA_FACADE_DEFINE_STR(...) MA_FACADE_DEFINE_VALUE(std::string, empty, __VA_ARGS__)
#define MA_FACADE_DEFINE_I32(...) MA_FACADE_DEFINE_VALUE(int, i32zero, __VA_ARGS__)
#define MA_FACADE_DEFINE_U32(...) MA_FACADE_DEFINE_VALUE(unsigned int, u32zero, __VA_ARGS__)
#define MA_FACADE_DEFINE_I64(...) MA_FACADE_DEFINE_VALUE(long long, i64zero, __VA_ARGS__)
#define MA_FACADE_DEFINE_U64(...) MA_FACADE_DEFINE_VALUE(unsigned long long, zero, __VA_ARGS__)
#define MA_FACADE_DEFINE(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_FACADE_DEFINE_##kind(get, set, storeGet, storeSet)

MA_ITEM_FIELDS(MA_FACADE_DEFINE)

// The sub-type accessors report a missing store with a located line.
std::string const& ItemInfo::getItemSubType() const {
  if (impl == nullptr) {
    reportMissingSubTypeStore(__func__, __LINE__);
    return empty;
  }
  return impl->getItemSubType();
}

void ItemInfo::setItemSubType(std::string const& value) {
  if (impl == nullptr) {
    reportMissingSubTypeStore(__func__, __LINE__);
    return;
  }
  impl->setItemSubType(value);
}

// Actor and director go through the store's virtual slots.
MA_FACADE_DEFINE_STR(getActor, setActor, getActor, setActor)
MA_FACADE_DEFINE_STR(getDirector, setDirector, getDirector, setDirector)

std::string ItemInfo::toString() const {
  if (impl == nullptr) {
    reportMissingStore("toString");
    return empty;
  }
  return impl->toString();
}

// ---------------------------------------------------------------------------
// Kinds

#define MA_DEFINE_ITEM_KIND_FACADE(Kind, Store)                                           \
  Kind::Kind(std::string const& caption, std::string const& uuid)                         \
      : ItemInfo(new Store(caption, uuid)) {}                                             \
  Kind::Kind(Kind const& other) : ItemInfo(other) { impl = copyStoreOfKind<Store>(other.impl); } \
  Kind::~Kind() { delete impl; }                                                          \
  ItemInfo* Kind::duplicate() const { return new Kind(*this); }

#define MA_DEFINE_ITEM_KIND(Name, type)                                                           \
  Name##ItemInfo::Name##ItemImpl::Name##ItemImpl(std::string const& caption,                      \
                                                 std::string const& uuid)                         \
      : ItemImpl(type, caption, uuid) {}                                                          \
  Name##ItemInfo::Name##ItemImpl::Name##ItemImpl(Name##ItemImpl const& other) = default;          \
  Name##ItemInfo::Name##ItemImpl::~Name##ItemImpl() = default;                                    \
  MA_DEFINE_ITEM_KIND_FACADE(Name##ItemInfo, Name##ItemImpl)                                      \
  Name##ItemInfo::Name##ItemImpl* Name##ItemInfo::getImpl() {                                     \
    return storeOfKind<Name##ItemImpl>(impl);                                                     \
  }                                                                                               \
  Name##ItemInfo::Name##ItemImpl const* Name##ItemInfo::getImpl() const {                         \
    return storeOfKind<const Name##ItemImpl>(static_cast<const ItemImpl*>(impl));                 \
  }

MA_DEFINE_ITEM_KIND(Music, ITEM_TYPE_MUSIC)
MA_DEFINE_ITEM_KIND(Video, ITEM_TYPE_VIDEO)
MA_DEFINE_ITEM_KIND(Picture, ITEM_TYPE_PICTURE)
MA_DEFINE_ITEM_KIND(Playlist, ITEM_TYPE_PLAYLIST)
MA_DEFINE_ITEM_KIND(Folder, ITEM_TYPE_FOLDER)
MA_DEFINE_ITEM_KIND(Document, ITEM_TYPE_DOCUMENT)
MA_DEFINE_ITEM_KIND(Other, ITEM_TYPE_OTHER)
MA_DEFINE_ITEM_KIND(Interactive, ITEM_TYPE_INTERACTIVE)

// The unknown kind's store is a plain ItemImpl; its copy takes any store as
// one, so a copied video store loses the video fields.
UnknownItemInfo::UnknownItemInfo(std::string const& caption, std::string const& uuid)
    : ItemInfo(new ItemImpl(ITEM_TYPE_UNKNOWN, caption, uuid)) {}

UnknownItemInfo::UnknownItemInfo(UnknownItemInfo const& other) : ItemInfo(other) {
  if (other.impl != nullptr) impl = new ItemImpl(*other.impl);
}

UnknownItemInfo::~UnknownItemInfo() { delete impl; }

ItemInfo* UnknownItemInfo::duplicate() const { return new UnknownItemInfo(*this); }

// ---------------------------------------------------------------------------
// Video extras

std::string const& VideoItemInfo::VideoItemImpl::getActor() const { return m_actor; }
void VideoItemInfo::VideoItemImpl::setActor(std::string const& value) { m_actor = value; }
std::string const& VideoItemInfo::VideoItemImpl::getDirector() const { return m_director; }
void VideoItemInfo::VideoItemImpl::setDirector(std::string const& value) { m_director = value; }

VideoItemInfo::VideoItemInfo(ItemImpl* store) : ItemInfo(store) {}

std::string const& VideoItemInfo::getStartTime() const {
  const VideoItemImpl* store = getImpl();
  return store == nullptr ? empty : store->m_startTime;
}

std::string const& VideoItemInfo::getEndTime() const {
  const VideoItemImpl* store = getImpl();
  return store == nullptr ? empty : store->m_endTime;
}

void VideoItemInfo::setStartTime(std::string value) {
  VideoItemImpl* store = getImpl();
  if (store != nullptr) store->m_startTime = ItemImpl::stripValue(value);
}

void VideoItemInfo::setEndTime(std::string value) {
  VideoItemImpl* store = getImpl();
  if (store != nullptr) store->m_endTime = ItemImpl::stripValue(value);
}

}  // namespace ma
