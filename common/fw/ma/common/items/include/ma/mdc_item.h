// The item record: the description of one piece of media content.
//
// ma::ItemInfo is a facade over a field store, ma::ItemInfo::ItemImpl, which
// holds every field (see mdc_item_fields.h for the list). Each of the nine
// item kinds has its own facade class and, except for the unknown kind, its
// own store class nested in it; a facade recognises its kind of store by the
// store's dynamic type. Only the video kind adds fields of its own.
//
// A facade owns its store. A facade may have no store at all (made by a copy
// from another kind, or given a null store): every accessor then writes
// "<accessor>(): impl is NULL" on the debug trace and answers a neutral value
// (an empty string, zero, false, or ITEM_TYPE_UNKNOWN).
//
// Thread-safety: a record is not locked. Several threads may read one record;
// a thread that changes a record needs outside synchronisation.
#ifndef MA_MDC_ITEM_H_
#define MA_MDC_ITEM_H_

#include <string>

#include "ma/export.h"
#include "ma/mdc_item_fields.h"

namespace ma {

// The item kinds, as bits so that callers can build masks of kinds.
enum itemType {
  ITEM_TYPE_UNKNOWN = 1,
  ITEM_TYPE_MUSIC = 2,
  ITEM_TYPE_VIDEO = 4,
  ITEM_TYPE_PICTURE = 8,
  ITEM_TYPE_PLAYLIST = 16,
  ITEM_TYPE_FOLDER = 32,
  ITEM_TYPE_DOCUMENT = 64,
  ITEM_TYPE_OTHER = 128,
  ITEM_TYPE_INTERACTIVE = 256
};

// Accessor declarations, one pair per row of MA_ITEM_FIELDS.
// On the store: getters return a const reference to the field (flags by
// value); numeric setters take a const reference, flag setters a value.
#define MA_ITEM_STORE_ACCESSORS_TYPE(get, set, q) \
  itemType const& get() const;                   \
  void set(itemType value);
#define MA_ITEM_STORE_ACCESSORS_UUID(get, set, q) std::string const& get() const;
#define MA_ITEM_STORE_ACCESSORS_BOOL(get, set, q) \
  bool get() const;                              \
  void set(bool value);
#define MA_ITEM_STORE_ACCESSORS_WORD(get, set, q)
#define MA_ITEM_STORE_ACCESSORS_VALUE(type, get, set, q) \
  type const& get() q;                                  \
  void set(type const& value);
#define MA_ITEM_STORE_ACCESSORS_SUBTYPE(get, set, q) MA_ITEM_STORE_ACCESSORS_VALUE(std::string, get, set, q)
#define MA_ITEM_STORE_ACCESSORS_STR(get, set, q) MA_ITEM_STORE_ACCESSORS_VALUE(std::string, get, set, q)
#define MA_ITEM_STORE_ACCESSORS_I32(get, set, q) MA_ITEM_STORE_ACCESSORS_VALUE(int, get, set, q)
#define MA_ITEM_STORE_ACCESSORS_U32(get, set, q) MA_ITEM_STORE_ACCESSORS_VALUE(unsigned int, get, set, q)
#define MA_ITEM_STORE_ACCESSORS_I64(get, set, q) MA_ITEM_STORE_ACCESSORS_VALUE(long long, get, set, q)
#define MA_ITEM_STORE_ACCESSORS_U64(get, set, q) MA_ITEM_STORE_ACCESSORS_VALUE(unsigned long long, get, set, q)
#define MA_ITEM_STORE_ACCESSORS(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_ITEM_STORE_ACCESSORS_##kind(storeGet, storeSet, q)

// On the facade: the same result types, all getters const; the item type is
// answered by value and has no facade setter.
#define MA_ITEM_FACADE_ACCESSORS_TYPE(get, set) itemType get() const;
#define MA_ITEM_FACADE_ACCESSORS_UUID(get, set) std::string const& get() const;
#define MA_ITEM_FACADE_ACCESSORS_BOOL(get, set) MA_ITEM_STORE_ACCESSORS_BOOL(get, set, const)
#define MA_ITEM_FACADE_ACCESSORS_WORD(get, set)
#define MA_ITEM_FACADE_ACCESSORS_SUBTYPE(get, set) MA_ITEM_STORE_ACCESSORS_STR(get, set, const)
#define MA_ITEM_FACADE_ACCESSORS_STR(get, set) MA_ITEM_STORE_ACCESSORS_STR(get, set, const)
#define MA_ITEM_FACADE_ACCESSORS_I32(get, set) MA_ITEM_STORE_ACCESSORS_I32(get, set, const)
#define MA_ITEM_FACADE_ACCESSORS_U32(get, set) MA_ITEM_STORE_ACCESSORS_U32(get, set, const)
#define MA_ITEM_FACADE_ACCESSORS_I64(get, set) MA_ITEM_STORE_ACCESSORS_I64(get, set, const)
#define MA_ITEM_FACADE_ACCESSORS_U64(get, set) MA_ITEM_STORE_ACCESSORS_U64(get, set, const)
#define MA_ITEM_FACADE_ACCESSORS(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_ITEM_FACADE_ACCESSORS_##kind(get, set)

#define MA_ITEM_FIELD_DECLARATION(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_ITEM_FIELD_TYPE_##kind member{initial};

// The record facade. Abstract: records are made through the kind classes.
class MA_COMMON_EXPORT ItemInfo {
 public:
  // The field store: every field of the record, with its accessors.
  class MA_COMMON_EXPORT ItemImpl {
   public:
    // Stores the three values; every other field gets its initial value.
    // Caption and UUID are stored as given (not trimmed).
    ItemImpl(itemType type, std::string const& caption, std::string const& uuid);
    // Copies every field, the word without accessors included.
    ItemImpl(ItemImpl const& other);
    ItemImpl& operator=(ItemImpl const&) = default;
    virtual ~ItemImpl();

    // The multi-line diagnostic text of the fields that carry information.
    virtual std::string toString() const;

    // Actor and director: only the video store holds them. Here the getters
    // answer ItemImpl::empty and the setters do nothing.
    virtual std::string const& getActor() const;
    virtual void setActor(std::string const& value);
    virtual std::string const& getDirector() const;
    virtual void setDirector(std::string const& value);

    MA_ITEM_FIELDS(MA_ITEM_STORE_ACCESSORS)

    // `value` without the blanks " \t\n\r" at its start and end; inner
    // characters are kept. An empty or all-blank value gives "".
    static std::string stripValue(std::string const& value);

    static const std::string empty;

   private:
    MA_ITEM_FIELDS(MA_ITEM_FIELD_DECLARATION)
  };

  // A facade without store.
  ItemInfo();
  // A facade without store: the kind copy constructors copy the store.
  ItemInfo(ItemInfo const& other);
  // Adopts `impl` (may be null); the kind destructors delete it.
  ItemInfo(ItemImpl* impl);
  // Records are copied with the kind copy constructors or duplicate(); an
  // assignment would share the store between two owners.
  ItemInfo& operator=(ItemInfo const&) = delete;
  // Leaves the store alone: the kind destructors delete it.
  virtual ~ItemInfo();

  // A new heap copy of the same kind, made by the kind's copy constructor.
  // The caller owns it.
  virtual ItemInfo* duplicate() const = 0;

  MA_ITEM_FIELDS(MA_ITEM_FACADE_ACCESSORS)

  // Through the store's virtual actor and director slots.
  std::string const& getActor() const;
  void setActor(std::string const& value);
  std::string const& getDirector() const;
  void setDirector(std::string const& value);

  // The store's text dump, or "" without store.
  std::string toString() const;

  // Compares identity, kind and the display, broadcast and recording fields,
  // in a fixed order, and stops at the first difference. Sizes, positions,
  // file times, protection data and flags take no part.
  bool operator==(ItemInfo const& other);
  bool operator!=(ItemInfo const& other);

  // Neutral answers of the getters of a facade without store.
  static const unsigned long long zero;
  static const long long i64zero;
  static const int i32zero;
  static const unsigned int u32zero;
  static const std::string empty;

 protected:
  ItemImpl* impl;  // owned by the kind facades; may be null
};

// The kind classes. Each is built from a caption and a UUID, which its store
// keeps untrimmed. A kind's copy constructor copies the store only when it is
// of the kind's own store class (or a subclass); otherwise the copy silently
// has no store. getImpl() answers the store as the kind's class, or null with
// "getImpl(): impl is NULL" on the trace.

class MA_COMMON_EXPORT UnknownItemInfo : public ItemInfo {
 public:
  UnknownItemInfo(std::string const& caption, std::string const& uuid);
  // Copies any store as a plain ItemImpl (a video store loses its own fields).
  UnknownItemInfo(UnknownItemInfo const& other);
  ~UnknownItemInfo() override;
  ItemInfo* duplicate() const override;
};

class MA_COMMON_EXPORT MusicItemInfo : public ItemInfo {
 public:
  class MA_COMMON_EXPORT MusicItemImpl : public ItemImpl {
   public:
    MusicItemImpl(std::string const& caption, std::string const& uuid);
    MusicItemImpl(MusicItemImpl const& other);
    ~MusicItemImpl() override;
  };

  MusicItemInfo(std::string const& caption, std::string const& uuid);
  MusicItemInfo(MusicItemInfo const& other);
  ~MusicItemInfo() override;
  ItemInfo* duplicate() const override;
  MusicItemImpl* getImpl();
  MusicItemImpl const* getImpl() const;
};

class MA_COMMON_EXPORT VideoItemInfo : public ItemInfo {
 public:
  // The only store with fields of its own: start and end time, actor and
  // director, all empty after construction.
  class MA_COMMON_EXPORT VideoItemImpl : public ItemImpl {
   public:
    VideoItemImpl(std::string const& caption, std::string const& uuid);
    VideoItemImpl(VideoItemImpl const& other);
    ~VideoItemImpl() override;

    // The base dump followed by the video fields that are not empty.
    std::string toString() const override;
    // Stored as given (not trimmed).
    std::string const& getActor() const override;
    void setActor(std::string const& value) override;
    std::string const& getDirector() const override;
    void setDirector(std::string const& value) override;

   private:
    friend class VideoItemInfo;

    std::string m_startTime;
    std::string m_endTime;
    std::string m_actor;
    std::string m_director;
  };

  VideoItemInfo(std::string const& caption, std::string const& uuid);
  // Adopts `impl` without checking its class; the video accessors below
  // then find no video store unless it is one.
  VideoItemInfo(ItemImpl* impl);
  VideoItemInfo(VideoItemInfo const& other);
  ~VideoItemInfo() override;
  ItemInfo* duplicate() const override;
  VideoItemImpl* getImpl();
  VideoItemImpl const* getImpl() const;

  // Start and end time: "" without video store. The setters trim the value
  // like the other trimmed fields and do nothing without video store.
  std::string const& getStartTime() const;
  std::string const& getEndTime() const;
  void setStartTime(std::string value);
  void setEndTime(std::string value);
};

class MA_COMMON_EXPORT PictureItemInfo : public ItemInfo {
 public:
  class MA_COMMON_EXPORT PictureItemImpl : public ItemImpl {
   public:
    PictureItemImpl(std::string const& caption, std::string const& uuid);
    PictureItemImpl(PictureItemImpl const& other);
    ~PictureItemImpl() override;
  };

  PictureItemInfo(std::string const& caption, std::string const& uuid);
  PictureItemInfo(PictureItemInfo const& other);
  ~PictureItemInfo() override;
  ItemInfo* duplicate() const override;
  PictureItemImpl* getImpl();
  PictureItemImpl const* getImpl() const;
};

class MA_COMMON_EXPORT PlaylistItemInfo : public ItemInfo {
 public:
  class MA_COMMON_EXPORT PlaylistItemImpl : public ItemImpl {
   public:
    PlaylistItemImpl(std::string const& caption, std::string const& uuid);
    PlaylistItemImpl(PlaylistItemImpl const& other);
    ~PlaylistItemImpl() override;
  };

  PlaylistItemInfo(std::string const& caption, std::string const& uuid);
  PlaylistItemInfo(PlaylistItemInfo const& other);
  ~PlaylistItemInfo() override;
  ItemInfo* duplicate() const override;
  PlaylistItemImpl* getImpl();
  PlaylistItemImpl const* getImpl() const;
};

class MA_COMMON_EXPORT FolderItemInfo : public ItemInfo {
 public:
  class MA_COMMON_EXPORT FolderItemImpl : public ItemImpl {
   public:
    FolderItemImpl(std::string const& caption, std::string const& uuid);
    FolderItemImpl(FolderItemImpl const& other);
    ~FolderItemImpl() override;
  };

  FolderItemInfo(std::string const& caption, std::string const& uuid);
  FolderItemInfo(FolderItemInfo const& other);
  ~FolderItemInfo() override;
  ItemInfo* duplicate() const override;
  FolderItemImpl* getImpl();
  FolderItemImpl const* getImpl() const;
};

class MA_COMMON_EXPORT DocumentItemInfo : public ItemInfo {
 public:
  class MA_COMMON_EXPORT DocumentItemImpl : public ItemImpl {
   public:
    DocumentItemImpl(std::string const& caption, std::string const& uuid);
    DocumentItemImpl(DocumentItemImpl const& other);
    ~DocumentItemImpl() override;
  };

  DocumentItemInfo(std::string const& caption, std::string const& uuid);
  DocumentItemInfo(DocumentItemInfo const& other);
  ~DocumentItemInfo() override;
  ItemInfo* duplicate() const override;
  DocumentItemImpl* getImpl();
  DocumentItemImpl const* getImpl() const;
};

class MA_COMMON_EXPORT OtherItemInfo : public ItemInfo {
 public:
  class MA_COMMON_EXPORT OtherItemImpl : public ItemImpl {
   public:
    OtherItemImpl(std::string const& caption, std::string const& uuid);
    OtherItemImpl(OtherItemImpl const& other);
    ~OtherItemImpl() override;
  };

  OtherItemInfo(std::string const& caption, std::string const& uuid);
  OtherItemInfo(OtherItemInfo const& other);
  ~OtherItemInfo() override;
  ItemInfo* duplicate() const override;
  OtherItemImpl* getImpl();
  OtherItemImpl const* getImpl() const;
};

class MA_COMMON_EXPORT InteractiveItemInfo : public ItemInfo {
 public:
  class MA_COMMON_EXPORT InteractiveItemImpl : public ItemImpl {
   public:
    InteractiveItemImpl(std::string const& caption, std::string const& uuid);
    InteractiveItemImpl(InteractiveItemImpl const& other);
    ~InteractiveItemImpl() override;
  };

  InteractiveItemInfo(std::string const& caption, std::string const& uuid);
  InteractiveItemInfo(InteractiveItemInfo const& other);
  ~InteractiveItemInfo() override;
  ItemInfo* duplicate() const override;
  InteractiveItemImpl* getImpl();
  InteractiveItemImpl const* getImpl() const;
};

}  // namespace ma

#endif  // MA_MDC_ITEM_H_
