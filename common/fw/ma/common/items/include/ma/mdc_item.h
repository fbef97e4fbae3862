// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// The item record: the description of one piece of media content.
///
/// ma::ItemInfo is a facade over a field store, ma::ItemInfo::ItemImpl, which
/// holds every field. Each of the nine item kinds has its own facade class
/// and, except for the unknown kind, its own store class nested in it; a
/// facade recognises its kind of store by the store's dynamic type. Only the
/// video kind adds fields of its own.
///
/// A facade owns its store. A facade may have no store at all (made by a copy
/// from another kind, or given a null store): every accessor then writes
/// "<accessor>(): impl is NULL" on the debug trace and answers a neutral value
/// (an empty string, zero, false, or ITEM_TYPE_UNKNOWN).
///
/// Thread-safety: a record is not locked. Several threads may read one record;
/// a thread that changes a record needs outside synchronisation.
#ifndef MA_MDC_ITEM_H_
#define MA_MDC_ITEM_H_

#include <string>

#include "ma/export.h"

/// The media-access library's classes.
namespace ma {

/// The item kinds, as bits so that callers can build masks of kinds. There is
/// no kind 0.
enum itemType {
  ITEM_TYPE_UNKNOWN = 1,       ///< any other content; UnknownItemInfo
  ITEM_TYPE_MUSIC = 2,         ///< a music track; MusicItemInfo
  ITEM_TYPE_VIDEO = 4,         ///< a video or recording; VideoItemInfo
  ITEM_TYPE_PICTURE = 8,       ///< a picture; PictureItemInfo
  ITEM_TYPE_PLAYLIST = 16,     ///< a playlist; PlaylistItemInfo
  ITEM_TYPE_FOLDER = 32,       ///< a folder; FolderItemInfo
  ITEM_TYPE_DOCUMENT = 64,     ///< a document; DocumentItemInfo
  ITEM_TYPE_OTHER = 128,       ///< other content; OtherItemInfo
  ITEM_TYPE_INTERACTIVE = 256  ///< an interactive service; InteractiveItemInfo
};

/// The record facade. Abstract: records are made through the kind classes
/// (FolderItemInfo, VideoItemInfo, ...), which own their field store.
///
/// The accessors come in groups of fields. Getters answer a const reference
/// to the stored field (flags, and the item type, by value); number setters
/// take a const reference, flag setters a value. Setters marked "trim" store
/// the value without the blanks " \t\n\r" at its start and end (see
/// ItemImpl::stripValue); the others store it as given. Without a store,
/// each accessor writes "<accessor>(): impl is NULL" on the debug trace, a
/// getter answers the neutral value named in its group, and a setter does
/// nothing.
class MA_COMMON_EXPORT ItemInfo {
 public:
  /// The field store: every field of the record, with its accessors. Its
  /// accessors have the facade's names (the locator's are getLocator and
  /// setLocator) and the same trimming; they never fail. Copyable and
  /// assignable; the kind stores below only mark the kind by their class.
  class MA_COMMON_EXPORT ItemImpl {
   public:
    /// Stores the three values; every other field gets its initial value.
    /// Caption and UUID are stored as given (not trimmed).
    ItemImpl(itemType type, std::string const& caption, std::string const& uuid);
    /// Copies every field, the reserved word without accessors included.
    ItemImpl(ItemImpl const& other);
    /// Assigns every field.
    ItemImpl& operator=(ItemImpl const&) = default;
    /// Destroys the fields.
    virtual ~ItemImpl();

    /// The multi-line diagnostic text of the fields that carry information.
    virtual std::string toString() const;

    /// Actor and director: only the video store holds them. Here the getters
    /// answer ItemImpl::empty and the setters do nothing.
    virtual std::string const& getActor() const;
    /// Does nothing here; the video store keeps the value as given.
    virtual void setActor(std::string const& value);
    /// ItemImpl::empty here; the video store answers its director.
    virtual std::string const& getDirector() const;
    /// Does nothing here; the video store keeps the value as given.
    virtual void setDirector(std::string const& value);

    /// @name Identity
    //@{
    /// Kind, sub-kind, caption and identifier, as on the facade. The item
    /// type can be changed here only; setCaption trims; the UUID is fixed.
    itemType const& getItemType() const;
    void setItemType(itemType value);
    std::string const& getItemSubType() const;
    void setItemSubType(std::string const& value);
    std::string const& getCaption() const;
    void setCaption(std::string const& value);
    std::string const& getUUID() const;
    //@}

    /// @name Origin
    //@{
    /// Where the item was found or made: stored as given.
    std::string const& getOriginalAncestor() const;
    void setOriginalAncestor(std::string const& value);
    std::string const& getCreator() const;
    void setCreator(std::string const& value);
    std::string const& getOriginalUuid() const;
    void setOriginalUuid(std::string const& value);
    std::string const& getOriginalVolume() const;
    void setOriginalVolume(std::string const& value);
    //@}

    /// @name Location and play time
    //@{
    /// Locator (the facade's getItemLocator), play time and thumbnail URL:
    /// the setters trim.
    std::string const& getLocator() const;
    void setLocator(std::string const& value);
    std::string const& getPlaytime() const;
    void setPlaytime(std::string const& value);
    std::string const& getThumbURL() const;
    void setThumbURL(std::string const& value);
    //@}

    /// @name Station
    //@{
    /// The broadcasting station's name and descriptions: stored as given.
    std::string const& getStationName() const;
    void setStationName(std::string const& value);
    std::string const& getStationDescription() const;
    void setStationDescription(std::string const& value);
    std::string const& getLongStationDescription() const;
    void setLongStationDescription(std::string const& value);
    //@}

    /// @name Description
    //@{
    /// Title, genre, description, comment and date text: the setters trim.
    std::string const& getTitle() const;
    void setTitle(std::string const& value);
    std::string const& getGenre() const;
    void setGenre(std::string const& value);
    std::string const& getDescription() const;
    void setDescription(std::string const& value);
    std::string const& getComment() const;
    void setComment(std::string const& value);
    std::string const& getDate() const;
    void setDate(std::string const& value);
    //@}

    /// @name Administration
    //@{
    /// User index, parental rating, file times, encryption and display
    /// rules: stored as given.
    std::string const& getUserIndex() const;
    void setUserIndex(std::string const& value);
    std::string const& getParentalRating() const;
    void setParentalRating(std::string const& value);
    std::string const& getCreationTime() const;
    void setCreationTime(std::string const& value);
    std::string const& getModificationTime() const;
    void setModificationTime(std::string const& value);
    std::string const& getEncryptionScheme() const;
    void setEncryptionScheme(std::string const& value);
    std::string const& getEncryptionInfo() const;
    void setEncryptionInfo(std::string const& value);
    std::string const& getDisplayRules() const;
    void setDisplayRules(std::string const& value);
    //@}

    /// @name Pages and encoding
    //@{
    /// Preview and subtitle page numbers and the text encoding: stored as
    /// given, 0 initially.
    int const& getPreviewPage() const;
    void setPreviewPage(int const& value);
    int const& getSubtitlePage() const;
    void setSubtitlePage(int const& value);
    int const& getEncoding() const;
    void setEncoding(int const& value);
    //@}

    /// @name Size, positions and flags
    //@{
    /// Stored as given; numbers start at 0, the three flags at true.
    bool isReceivable() const;
    void setReceivable(bool value);
    unsigned long long const& getFileSize() const;
    void setFileSize(unsigned long long const& value);
    long long const& getDateNumeric() const;
    void setDateNumeric(long long const& value);
    int const& getAttributes() const;
    void setAttributes(int const& value);
    unsigned int const& getMaxPosition() const;
    void setMaxPosition(unsigned int const& value);
    unsigned int const& getResumePosition() const;
    void setResumePosition(unsigned int const& value);
    int const& getVolumeCorrection() const;
    void setVolumeCorrection(int const& value);
    bool isVisible() const;
    void setVisible(bool value);
    bool isSelectable() const;
    void setSelectable(bool value);
    unsigned int const& getSoundSelection() const;
    void setSoundSelection(unsigned int const& value);
    //@}

    /// @name Broadcast
    //@{
    /// Tuner, logical channel number, EPG theme and network: stored as
    /// given; the network starts at -1, the numbers at 0.
    std::string const& getTunerUUID() const;
    void setTunerUUID(std::string const& value);
    unsigned int const& getLcn() const;
    void setLcn(unsigned int const& value);
    int const& getEpgTheme() const;
    void setEpgTheme(int const& value);
    int const& getNetworkID() const;
    void setNetworkID(int const& value);
    //@}

    /// @name Music
    //@{
    /// Artist, album, album UUID, track number, year and bit rate text:
    /// stored as given.
    std::string const& getArtist() const;
    void setArtist(std::string const& value);
    std::string const& getAlbum() const;
    void setAlbum(std::string const& value);
    std::string const& getAlbumUUID() const;
    void setAlbumUUID(std::string const& value);
    std::string const& getTrackNum() const;
    void setTrackNum(std::string const& value);
    std::string const& getYear() const;
    void setYear(std::string const& value);
    std::string const& getBitrate() const;
    void setBitrate(std::string const& value);
    //@}

    /// @name Recording
    //@{
    /// The recorder's details, text except the channel number: stored as
    /// given. These getters are not const on the store (they are on the
    /// facade).
    std::string const& getRecStartTime();
    void setRecStartTime(std::string const& value);
    std::string const& getRecEndTime();
    void setRecEndTime(std::string const& value);
    std::string const& getRecDuration();
    void setRecDuration(std::string const& value);
    std::string const& getRecTsId();
    void setRecTsId(std::string const& value);
    std::string const& getRecServiceId();
    void setRecServiceId(std::string const& value);
    std::string const& getRecOnId();
    void setRecOnId(std::string const& value);
    std::string const& getRecEventType();
    void setRecEventType(std::string const& value);
    std::string const& getRecFailType();
    void setRecFailType(std::string const& value);
    int const& getRecChnum();
    void setRecChnum(int const& value);
    //@}

    /// `value` without the blanks " \t\n\r" at its start and end; inner
    /// characters are kept. An empty or all-blank value gives "".
    static std::string stripValue(std::string const& value);

    /// The empty string answered by the base actor and director getters.
    static const std::string empty;

   private:
    // The fields in declaration order (the order is part of the layout).
    itemType m_itemType;
    std::string m_itemSubType;
    std::string m_caption;
    std::string m_uuid;
    std::string m_originalAncestor;
    std::string m_creator;
    std::string m_originalUuid;
    std::string m_originalVolume;
    std::string m_locator;
    std::string m_playtime;
    std::string m_thumbURL;
    std::string m_stationName;
    std::string m_stationDescription;
    std::string m_longStationDescription;
    std::string m_title;
    std::string m_genre;
    std::string m_description;
    std::string m_comment;
    std::string m_date;
    std::string m_userIndex;
    std::string m_parentalRating;
    std::string m_creationTime;
    std::string m_modificationTime;
    std::string m_encryptionScheme;
    std::string m_encryptionInfo;
    std::string m_displayRules;
    int m_previewPage;
    int m_subtitlePage;
    int m_encoding;
    bool m_receivable;
    unsigned long long m_fileSize;
    long long m_dateNumeric;
    int m_attributes;
    unsigned int m_maxPosition;
    unsigned int m_resumePosition;
    unsigned int m_reserved;  // without accessors: set to 0, copied, never read
    int m_volumeCorrection;
    bool m_visible;
    bool m_selectable;
    unsigned int m_soundSelection;
    std::string m_tunerUUID;
    unsigned int m_lcn;
    int m_epgTheme;
    int m_networkID;
    std::string m_artist;
    std::string m_album;
    std::string m_albumUUID;
    std::string m_trackNum;
    std::string m_year;
    std::string m_bitrate;
    std::string m_recStartTime;
    std::string m_recEndTime;
    std::string m_recDuration;
    std::string m_recTsId;
    std::string m_recServiceId;
    std::string m_recOnId;
    std::string m_recEventType;
    std::string m_recFailType;
    int m_recChnum;
  };

  /// A facade without store.
  ItemInfo();
  /// A facade without store: the kind copy constructors copy the store.
  ItemInfo(ItemInfo const& other);
  /// Adopts `impl` (may be null); the kind destructors delete it.
  ItemInfo(ItemImpl* impl);
  /// Records are copied with the kind copy constructors or duplicate(); an
  /// assignment would share the store between two owners.
  ItemInfo& operator=(ItemInfo const&) = delete;
  /// Leaves the store alone: the kind destructors delete it.
  virtual ~ItemInfo();

  /// A new heap copy of the same kind, made by the kind's copy constructor.
  /// The caller owns it.
  virtual ItemInfo* duplicate() const = 0;

  /// @name Identity
  //@{
  /// Kind, sub-kind, caption and identifier. setCaption trims; the sub-type
  /// is stored as given; the UUID is fixed at construction and has no
  /// setter. Without store: ITEM_TYPE_UNKNOWN and `empty`; the sub-type
  /// accessors write the located line "...(): Impl is NULL." instead.
  itemType getItemType() const;
  std::string const& getItemSubType() const;
  void setItemSubType(std::string const& value);
  std::string const& getCaption() const;
  void setCaption(std::string const& value);
  std::string const& getUUID() const;
  //@}

  /// @name Origin
  //@{
  /// Where the item was found or made: the original ancestor, creator,
  /// original UUID and volume. Stored as given; without store `empty`.
  std::string const& getOriginalAncestor() const;
  void setOriginalAncestor(std::string const& value);
  std::string const& getCreator() const;
  void setCreator(std::string const& value);
  std::string const& getOriginalUuid() const;
  void setOriginalUuid(std::string const& value);
  std::string const& getOriginalVolume() const;
  void setOriginalVolume(std::string const& value);
  //@}

  /// @name Location and play time
  //@{
  /// Where the content is (locator), its play time and its thumbnail URL.
  /// The setters trim; without store `empty`.
  std::string const& getItemLocator() const;
  void setItemLocator(std::string const& value);
  std::string const& getPlaytime() const;
  void setPlaytime(std::string const& value);
  std::string const& getThumbURL() const;
  void setThumbURL(std::string const& value);
  //@}

  /// @name Station
  //@{
  /// The broadcasting station's name, description and long description.
  /// Stored as given; without store `empty`.
  std::string const& getStationName() const;
  void setStationName(std::string const& value);
  std::string const& getStationDescription() const;
  void setStationDescription(std::string const& value);
  std::string const& getLongStationDescription() const;
  void setLongStationDescription(std::string const& value);
  //@}

  /// @name Description
  //@{
  /// Title, genre, description, comment and date as text. The setters trim;
  /// without store `empty`.
  std::string const& getTitle() const;
  void setTitle(std::string const& value);
  std::string const& getGenre() const;
  void setGenre(std::string const& value);
  std::string const& getDescription() const;
  void setDescription(std::string const& value);
  std::string const& getComment() const;
  void setComment(std::string const& value);
  std::string const& getDate() const;
  void setDate(std::string const& value);
  //@}

  /// @name Administration
  //@{
  /// User index, parental rating, creation and modification time, encryption
  /// scheme and data, display rules. Stored as given; without store `empty`.
  std::string const& getUserIndex() const;
  void setUserIndex(std::string const& value);
  std::string const& getParentalRating() const;
  void setParentalRating(std::string const& value);
  std::string const& getCreationTime() const;
  void setCreationTime(std::string const& value);
  std::string const& getModificationTime() const;
  void setModificationTime(std::string const& value);
  std::string const& getEncryptionScheme() const;
  void setEncryptionScheme(std::string const& value);
  std::string const& getEncryptionInfo() const;
  void setEncryptionInfo(std::string const& value);
  std::string const& getDisplayRules() const;
  void setDisplayRules(std::string const& value);
  //@}

  /// @name Pages and encoding
  //@{
  /// Teletext preview and subtitle pages and the text encoding, 0 after
  /// construction. Stored as given; without store `i32zero`.
  int const& getPreviewPage() const;
  void setPreviewPage(int const& value);
  int const& getSubtitlePage() const;
  void setSubtitlePage(int const& value);
  int const& getEncoding() const;
  void setEncoding(int const& value);
  //@}

  /// @name Size, positions and flags
  //@{
  /// File size, numeric date, attributes, positions, volume correction,
  /// sound selection (0 after construction) and the receivable, visible and
  /// selectable flags (true after construction). Stored as given; without
  /// store the matching zero static (`zero`, `i64zero`, `i32zero`,
  /// `u32zero`) or false.
  bool isReceivable() const;
  void setReceivable(bool value);
  unsigned long long const& getFileSize() const;
  void setFileSize(unsigned long long const& value);
  long long const& getDateNumeric() const;
  void setDateNumeric(long long const& value);
  int const& getAttributes() const;
  void setAttributes(int const& value);
  unsigned int const& getMaxPosition() const;
  void setMaxPosition(unsigned int const& value);
  unsigned int const& getResumePosition() const;
  void setResumePosition(unsigned int const& value);
  int const& getVolumeCorrection() const;
  void setVolumeCorrection(int const& value);
  bool isVisible() const;
  void setVisible(bool value);
  bool isSelectable() const;
  void setSelectable(bool value);
  unsigned int const& getSoundSelection() const;
  void setSoundSelection(unsigned int const& value);
  //@}

  /// @name Broadcast
  //@{
  /// Tuner UUID, logical channel number, EPG theme and network ID (-1 after
  /// construction, the others 0 or empty). Stored as given; without store
  /// `empty`, `u32zero` or `i32zero` (so the network answers 0).
  std::string const& getTunerUUID() const;
  void setTunerUUID(std::string const& value);
  unsigned int const& getLcn() const;
  void setLcn(unsigned int const& value);
  int const& getEpgTheme() const;
  void setEpgTheme(int const& value);
  int const& getNetworkID() const;
  void setNetworkID(int const& value);
  //@}

  /// @name Music
  //@{
  /// Artist, album, album UUID, track number, year and bit rate, all text.
  /// Stored as given; without store `empty`.
  std::string const& getArtist() const;
  void setArtist(std::string const& value);
  std::string const& getAlbum() const;
  void setAlbum(std::string const& value);
  std::string const& getAlbumUUID() const;
  void setAlbumUUID(std::string const& value);
  std::string const& getTrackNum() const;
  void setTrackNum(std::string const& value);
  std::string const& getYear() const;
  void setYear(std::string const& value);
  std::string const& getBitrate() const;
  void setBitrate(std::string const& value);
  //@}

  /// @name Recording
  //@{
  /// The recorder's start, end and duration, transport stream, service and
  /// original network IDs, event and failure type (text) and channel number.
  /// Stored as given; without store `empty` or `i32zero`.
  std::string const& getRecStartTime() const;
  void setRecStartTime(std::string const& value);
  std::string const& getRecEndTime() const;
  void setRecEndTime(std::string const& value);
  std::string const& getRecDuration() const;
  void setRecDuration(std::string const& value);
  std::string const& getRecTsId() const;
  void setRecTsId(std::string const& value);
  std::string const& getRecServiceId() const;
  void setRecServiceId(std::string const& value);
  std::string const& getRecOnId() const;
  void setRecOnId(std::string const& value);
  std::string const& getRecEventType() const;
  void setRecEventType(std::string const& value);
  std::string const& getRecFailType() const;
  void setRecFailType(std::string const& value);
  int const& getRecChnum() const;
  void setRecChnum(int const& value);
  //@}

  /// @name Actor and director
  //@{
  /// Through the store's virtual slots: only a video store keeps them (as
  /// given); other stores answer `empty` and ignore the setters. Without
  /// store `empty`.
  std::string const& getActor() const;
  void setActor(std::string const& value);
  std::string const& getDirector() const;
  void setDirector(std::string const& value);
  //@}

  /// The store's text dump, or "" without store.
  std::string toString() const;

  /// Compares identity, kind and the display, broadcast and recording fields,
  /// in a fixed order, and stops at the first difference. Sizes, positions,
  /// file times, protection data and flags take no part.
  bool operator==(ItemInfo const& other);
  /// The negation of operator==.
  bool operator!=(ItemInfo const& other);

  /// @name Neutral answers
  //@{
  /// What the getters of a facade without store answer: zero or empty,
  /// never changed.
  static const unsigned long long zero;
  static const long long i64zero;
  static const int i32zero;
  static const unsigned int u32zero;
  static const std::string empty;
  //@}

 protected:
  /// The field store, owned by the kind facades; may be null.
  ItemImpl* impl;
};

// The kind classes. Each is built from a caption and a UUID, which its store
// keeps untrimmed. A kind's copy constructor copies the store only when it is
// of the kind's own store class (or a subclass); otherwise the copy silently
// has no store. getImpl() answers the store as the kind's class, or null with
// "getImpl(): impl is NULL" on the trace.

/// A record of kind ITEM_TYPE_UNKNOWN; its store is a plain ItemImpl.
class MA_COMMON_EXPORT UnknownItemInfo : public ItemInfo {
 public:
  /// A new store of kind ITEM_TYPE_UNKNOWN with `caption` and `uuid`, untrimmed.
  UnknownItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies any store as a plain ItemImpl (a video store loses its own fields).
  UnknownItemInfo(UnknownItemInfo const& other);
  /// Deletes the store.
  ~UnknownItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
};

/// A record of kind ITEM_TYPE_MUSIC.
class MA_COMMON_EXPORT MusicItemInfo : public ItemInfo {
 public:
  /// The music store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT MusicItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_MUSIC.
    MusicItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    MusicItemImpl(MusicItemImpl const& other);
    /// Destroys the fields.
    ~MusicItemImpl() override;
  };

  /// A new music store with `caption` and `uuid`, untrimmed.
  MusicItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a music store; otherwise the copy has none.
  MusicItemInfo(MusicItemInfo const& other);
  /// Deletes the store.
  ~MusicItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as a music store, or null (traced) when it is none.
  MusicItemImpl* getImpl();
  /// The store as a music store, or null (traced) when it is none.
  MusicItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_VIDEO: the only kind with fields of its own.
class MA_COMMON_EXPORT VideoItemInfo : public ItemInfo {
 public:
  /// The only store with fields of its own: start and end time, actor and
  /// director, all empty after construction.
  class MA_COMMON_EXPORT VideoItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_VIDEO.
    VideoItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field, the video fields included.
    VideoItemImpl(VideoItemImpl const& other);
    /// Destroys the fields.
    ~VideoItemImpl() override;

    /// The base dump followed by the video fields that are not empty.
    std::string toString() const override;
    /// The actor, stored as given (not trimmed).
    std::string const& getActor() const override;
    /// Stores the actor as given.
    void setActor(std::string const& value) override;
    /// The director, stored as given (not trimmed).
    std::string const& getDirector() const override;
    /// Stores the director as given.
    void setDirector(std::string const& value) override;

   private:
    friend class VideoItemInfo;

    std::string m_startTime;
    std::string m_endTime;
    std::string m_actor;
    std::string m_director;
  };

  /// A new video store with `caption` and `uuid`, untrimmed.
  VideoItemInfo(std::string const& caption, std::string const& uuid);
  /// Adopts `impl` without checking its class; the video accessors below
  /// then find no video store unless it is one.
  VideoItemInfo(ItemImpl* impl);
  /// Copies the store if it is a video store; otherwise the copy has none.
  VideoItemInfo(VideoItemInfo const& other);
  /// Deletes the store.
  ~VideoItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as a video store, or null (traced) when it is none.
  VideoItemImpl* getImpl();
  /// The store as a video store, or null (traced) when it is none.
  VideoItemImpl const* getImpl() const;

  /// @name Start and end time
  //@{
  /// "" without video store. The setters trim the value like the other
  /// trimmed fields and do nothing without video store.
  std::string const& getStartTime() const;
  std::string const& getEndTime() const;
  void setStartTime(std::string value);
  void setEndTime(std::string value);
  //@}
};

/// A record of kind ITEM_TYPE_PICTURE.
class MA_COMMON_EXPORT PictureItemInfo : public ItemInfo {
 public:
  /// The picture store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT PictureItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_PICTURE.
    PictureItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    PictureItemImpl(PictureItemImpl const& other);
    /// Destroys the fields.
    ~PictureItemImpl() override;
  };

  /// A new picture store with `caption` and `uuid`, untrimmed.
  PictureItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a picture store; otherwise the copy has none.
  PictureItemInfo(PictureItemInfo const& other);
  /// Deletes the store.
  ~PictureItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as a picture store, or null (traced) when it is none.
  PictureItemImpl* getImpl();
  /// The store as a picture store, or null (traced) when it is none.
  PictureItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_PLAYLIST.
class MA_COMMON_EXPORT PlaylistItemInfo : public ItemInfo {
 public:
  /// The playlist store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT PlaylistItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_PLAYLIST.
    PlaylistItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    PlaylistItemImpl(PlaylistItemImpl const& other);
    /// Destroys the fields.
    ~PlaylistItemImpl() override;
  };

  /// A new playlist store with `caption` and `uuid`, untrimmed.
  PlaylistItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a playlist store; otherwise the copy has none.
  PlaylistItemInfo(PlaylistItemInfo const& other);
  /// Deletes the store.
  ~PlaylistItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as a playlist store, or null (traced) when it is none.
  PlaylistItemImpl* getImpl();
  /// The store as a playlist store, or null (traced) when it is none.
  PlaylistItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_FOLDER.
class MA_COMMON_EXPORT FolderItemInfo : public ItemInfo {
 public:
  /// The folder store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT FolderItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_FOLDER.
    FolderItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    FolderItemImpl(FolderItemImpl const& other);
    /// Destroys the fields.
    ~FolderItemImpl() override;
  };

  /// A new folder store with `caption` and `uuid`, untrimmed.
  FolderItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a folder store; otherwise the copy has none.
  FolderItemInfo(FolderItemInfo const& other);
  /// Deletes the store.
  ~FolderItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as a folder store, or null (traced) when it is none.
  FolderItemImpl* getImpl();
  /// The store as a folder store, or null (traced) when it is none.
  FolderItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_DOCUMENT.
class MA_COMMON_EXPORT DocumentItemInfo : public ItemInfo {
 public:
  /// The document store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT DocumentItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_DOCUMENT.
    DocumentItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    DocumentItemImpl(DocumentItemImpl const& other);
    /// Destroys the fields.
    ~DocumentItemImpl() override;
  };

  /// A new document store with `caption` and `uuid`, untrimmed.
  DocumentItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a document store; otherwise the copy has none.
  DocumentItemInfo(DocumentItemInfo const& other);
  /// Deletes the store.
  ~DocumentItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as a document store, or null (traced) when it is none.
  DocumentItemImpl* getImpl();
  /// The store as a document store, or null (traced) when it is none.
  DocumentItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_OTHER.
class MA_COMMON_EXPORT OtherItemInfo : public ItemInfo {
 public:
  /// The store of other content: marks the kind, adds no fields.
  class MA_COMMON_EXPORT OtherItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_OTHER.
    OtherItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    OtherItemImpl(OtherItemImpl const& other);
    /// Destroys the fields.
    ~OtherItemImpl() override;
  };

  /// A new store of other content with `caption` and `uuid`, untrimmed.
  OtherItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is an OtherItemImpl; otherwise the copy has none.
  OtherItemInfo(OtherItemInfo const& other);
  /// Deletes the store.
  ~OtherItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as an OtherItemImpl, or null (traced) when it is none.
  OtherItemImpl* getImpl();
  /// The store as an OtherItemImpl, or null (traced) when it is none.
  OtherItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_INTERACTIVE.
class MA_COMMON_EXPORT InteractiveItemInfo : public ItemInfo {
 public:
  /// The interactive-service store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT InteractiveItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_INTERACTIVE.
    InteractiveItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    InteractiveItemImpl(InteractiveItemImpl const& other);
    /// Destroys the fields.
    ~InteractiveItemImpl() override;
  };

  /// A new interactive-service store with `caption` and `uuid`, untrimmed.
  InteractiveItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is an interactive-service store; otherwise the
  /// copy has none.
  InteractiveItemInfo(InteractiveItemInfo const& other);
  /// Deletes the store.
  ~InteractiveItemInfo() override;
  /// A new copy made by the copy constructor; the caller owns it.
  ItemInfo* duplicate() const override;
  /// The store as an interactive-service store, or null (traced) when it is
  /// none.
  InteractiveItemImpl* getImpl();
  /// The store as an interactive-service store, or null (traced) when it is
  /// none.
  InteractiveItemImpl const* getImpl() const;
};

}  // namespace ma

#endif  // MA_MDC_ITEM_H_
