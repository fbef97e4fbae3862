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
/// "<accessor>(): impl is NULL" on the debug trace (the VFS module's failure
/// level, 375 * 65536 + 3000) and answers a neutral value (an empty string,
/// zero, false, or ITEM_TYPE_UNKNOWN).
///
/// Exceptions: the library throws none of its own. What passes through comes
/// from the string type: std::bad_alloc where a function copies or builds a
/// string (each such function says so); every other function here throws
/// nothing. Passing a null `const char*` where a std::string is expected
/// throws std::logic_error ("basic_string::_M_construct null not valid")
/// while the argument is built, before the library is called.
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
/// to the stored field (flags, and the item type, by value), which stays
/// valid until the field is set again or the store is destroyed; number
/// setters take a const reference, flag setters a value. A setter either
/// trims (stores the value without the spaces, tabs, line feeds and carriage
/// returns at its start and end, see ItemImpl::stripValue) or stores the
/// value as given; each says which. Without a store, each accessor writes
/// "<accessor>(): impl is NULL" on the debug trace, a getter answers the
/// neutral value it names (one of the constant statics below, false or
/// ITEM_TYPE_UNKNOWN), and a setter changes nothing. Every field with an
/// accessor travels in the item message of ma::rpc::convertMaItem (the item
/// type as the message's kind).
class MA_COMMON_EXPORT ItemInfo {
 public:
  /// The field store: every field of the record, with its accessors. Its
  /// accessors have the facade's names (the locator's are getLocator and
  /// setLocator) and the same trimming; they never fail. Copyable and
  /// assignable; the kind stores below only mark the kind by their class.
  class MA_COMMON_EXPORT ItemImpl {
   public:
    /// Stores the three values; every other field gets its initial value
    /// (empty texts, 0, true flags, network -1). Caption and UUID are stored
    /// as given (not trimmed).
    /// @param type the kind the store reports through getItemType.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed; no setter changes it.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    ItemImpl(itemType type, std::string const& caption, std::string const& uuid);
    /// Copies every field, the reserved word without accessors included.
    /// @param other the store to copy; only its ItemImpl part is copied.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    ItemImpl(ItemImpl const& other);
    /// Assigns every field (the ItemImpl part only: a video store's own
    /// fields are neither read nor changed).
    /// @return this store.
    /// @throws std::bad_alloc if a string copy cannot be allocated; the
    /// fields assigned before it keep their new values.
    ItemImpl& operator=(ItemImpl const&) = default;
    /// Destroys the fields.
    virtual ~ItemImpl();

    /// The multi-line diagnostic text: one line "<label><value>" per field
    /// that carries information (text not empty, number not 0; the item type
    /// always), in a fixed order with fixed labels, for logs only. Flags,
    /// pages, encoding, attributes, the maximum position, the volume
    /// correction, the sound selection, the logical channel number, the EPG
    /// theme, the network ID and the music fields other than the year are
    /// never shown.
    /// @return the text, each line ended by a line feed.
    /// @throws std::bad_alloc if the text cannot be allocated.
    virtual std::string toString() const;

    /// The actor slot, which holds no data here: only the video store keeps
    /// an actor.
    /// @return ItemImpl::empty (""), whatever was set.
    virtual std::string const& getActor() const;
    /// The actor slot's setter, which ignores its argument here: only the
    /// video store keeps an actor.
    /// @param value the actor, not stored.
    virtual void setActor(std::string const& value);
    /// The director slot, which holds no data here: only the video store
    /// keeps a director.
    /// @return ItemImpl::empty (""), whatever was set.
    virtual std::string const& getDirector() const;
    /// The director slot's setter, which ignores its argument here: only the
    /// video store keeps a director.
    /// @param value the director, not stored.
    virtual void setDirector(std::string const& value);

    /// @name Identity
    /// Kind, sub-kind, caption and identifier, as on the facade. The item
    /// type can be changed here only; setCaption trims; the UUID has no setter.
    //@{
    /// The item type held by this store; the constructor's `type`.
    /// @return a reference to the stored item type.
    itemType const& getItemType() const;
    /// Changes the stored item type. The record's class does not follow: a
    /// FolderItemInfo may then report ITEM_TYPE_VIDEO, and
    /// ma::rpc::convertMaItem, which picks the payload by the stored type and
    /// then checks the class, leaves the message empty.
    /// @param value the new item type.
    void setItemType(itemType value);
    /// The item sub-type held by this store; empty after construction.
    /// @return a reference to the stored item sub-type.
    std::string const& getItemSubType() const;
    /// Sets the item sub-type: stores `value` as given, blanks included.
    /// @param value the new item sub-type.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setItemSubType(std::string const& value);
    /// The caption held by this store; the constructor's `caption`, untrimmed.
    /// @return a reference to the stored caption.
    std::string const& getCaption() const;
    /// Sets the caption: stores `value` without the spaces, tabs, line feeds
    /// and carriage returns at its start and end (see ItemImpl::stripValue).
    /// @param value the new caption.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setCaption(std::string const& value);
    /// The identifier held by this store; the constructor's `uuid`, untrimmed.
    /// No setter changes it; only an assignment of a whole store does.
    /// @return a reference to the stored identifier.
    std::string const& getUUID() const;
    //@}

    /// @name Origin
    /// Where the item was found or made: stored as given.
    //@{
    /// The original ancestor held by this store; empty after construction.
    /// @return a reference to the stored original ancestor.
    std::string const& getOriginalAncestor() const;
    /// Sets the original ancestor: stores `value` as given, blanks included.
    /// @param value the new original ancestor.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setOriginalAncestor(std::string const& value);
    /// The creator held by this store; empty after construction.
    /// @return a reference to the stored creator.
    std::string const& getCreator() const;
    /// Sets the creator: stores `value` as given, blanks included.
    /// @param value the new creator.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setCreator(std::string const& value);
    /// The original identifier held by this store; empty after construction.
    /// @return a reference to the stored original identifier.
    std::string const& getOriginalUuid() const;
    /// Sets the original identifier: stores `value` as given, blanks included.
    /// @param value the new original identifier.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setOriginalUuid(std::string const& value);
    /// The original volume held by this store; empty after construction.
    /// @return a reference to the stored original volume.
    std::string const& getOriginalVolume() const;
    /// Sets the original volume: stores `value` as given, blanks included.
    /// @param value the new original volume.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setOriginalVolume(std::string const& value);
    //@}

    /// @name Location and play time
    /// Locator (the facade's getItemLocator), play time and thumbnail URL:
    /// the setters trim.
    //@{
    /// The locator held by this store; empty after construction. The facade
    /// calls it getItemLocator.
    /// @return a reference to the stored locator.
    std::string const& getLocator() const;
    /// Sets the locator: stores `value` without the spaces, tabs, line feeds
    /// and carriage returns at its start and end (see ItemImpl::stripValue).
    /// The facade calls it setItemLocator.
    /// @param value the new locator.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setLocator(std::string const& value);
    /// The play time held by this store; empty after construction.
    /// @return a reference to the stored play time.
    std::string const& getPlaytime() const;
    /// Sets the play time: stores `value` without the spaces, tabs, line feeds
    /// and carriage returns at its start and end (see ItemImpl::stripValue).
    /// @param value the new play time.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setPlaytime(std::string const& value);
    /// The thumbnail URL held by this store; empty after construction.
    /// @return a reference to the stored thumbnail URL.
    std::string const& getThumbURL() const;
    /// Sets the thumbnail URL: stores `value` without the spaces, tabs, line
    /// feeds and carriage returns at its start and end (see
    /// ItemImpl::stripValue).
    /// @param value the new thumbnail URL.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setThumbURL(std::string const& value);
    //@}

    /// @name Station
    /// The broadcasting station's name and descriptions: stored as given.
    //@{
    /// The station name held by this store; empty after construction.
    /// @return a reference to the stored station name.
    std::string const& getStationName() const;
    /// Sets the station name: stores `value` as given, blanks included.
    /// @param value the new station name.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setStationName(std::string const& value);
    /// The station description held by this store; empty after construction.
    /// @return a reference to the stored station description.
    std::string const& getStationDescription() const;
    /// Sets the station description: stores `value` as given, blanks included.
    /// @param value the new station description.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setStationDescription(std::string const& value);
    /// The long station description held by this store; empty after
    /// construction.
    /// @return a reference to the stored long station description.
    std::string const& getLongStationDescription() const;
    /// Sets the long station description: stores `value` as given, blanks
    /// included.
    /// @param value the new long station description.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setLongStationDescription(std::string const& value);
    //@}

    /// @name Description
    /// Title, genre, description, comment and date text: the setters trim.
    //@{
    /// The title held by this store; empty after construction.
    /// @return a reference to the stored title.
    std::string const& getTitle() const;
    /// Sets the title: stores `value` without the spaces, tabs, line feeds and
    /// carriage returns at its start and end (see ItemImpl::stripValue).
    /// @param value the new title.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setTitle(std::string const& value);
    /// The genre held by this store; empty after construction.
    /// @return a reference to the stored genre.
    std::string const& getGenre() const;
    /// Sets the genre: stores `value` without the spaces, tabs, line feeds and
    /// carriage returns at its start and end (see ItemImpl::stripValue).
    /// @param value the new genre.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setGenre(std::string const& value);
    /// The description held by this store; empty after construction.
    /// @return a reference to the stored description.
    std::string const& getDescription() const;
    /// Sets the description: stores `value` without the spaces, tabs, line
    /// feeds and carriage returns at its start and end (see
    /// ItemImpl::stripValue).
    /// @param value the new description.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setDescription(std::string const& value);
    /// The comment held by this store; empty after construction.
    /// @return a reference to the stored comment.
    std::string const& getComment() const;
    /// Sets the comment: stores `value` without the spaces, tabs, line feeds
    /// and carriage returns at its start and end (see ItemImpl::stripValue).
    /// @param value the new comment.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setComment(std::string const& value);
    /// The date text held by this store; empty after construction.
    /// @return a reference to the stored date text.
    std::string const& getDate() const;
    /// Sets the date text: stores `value` without the spaces, tabs, line feeds
    /// and carriage returns at its start and end (see ItemImpl::stripValue).
    /// @param value the new date text.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setDate(std::string const& value);
    //@}

    /// @name Administration
    /// User index, parental rating, file times, encryption and display
    /// rules: stored as given.
    //@{
    /// The user index held by this store; empty after construction.
    /// @return a reference to the stored user index.
    std::string const& getUserIndex() const;
    /// Sets the user index: stores `value` as given, blanks included.
    /// @param value the new user index.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setUserIndex(std::string const& value);
    /// The parental rating held by this store; empty after construction.
    /// @return a reference to the stored parental rating.
    std::string const& getParentalRating() const;
    /// Sets the parental rating: stores `value` as given, blanks included.
    /// @param value the new parental rating.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setParentalRating(std::string const& value);
    /// The creation time held by this store; empty after construction.
    /// @return a reference to the stored creation time.
    std::string const& getCreationTime() const;
    /// Sets the creation time: stores `value` as given, blanks included.
    /// @param value the new creation time.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setCreationTime(std::string const& value);
    /// The modification time held by this store; empty after construction.
    /// @return a reference to the stored modification time.
    std::string const& getModificationTime() const;
    /// Sets the modification time: stores `value` as given, blanks included.
    /// @param value the new modification time.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setModificationTime(std::string const& value);
    /// The encryption scheme held by this store; empty after construction.
    /// @return a reference to the stored encryption scheme.
    std::string const& getEncryptionScheme() const;
    /// Sets the encryption scheme: stores `value` as given, blanks included.
    /// @param value the new encryption scheme.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setEncryptionScheme(std::string const& value);
    /// The encryption data held by this store; empty after construction.
    /// @return a reference to the stored encryption data.
    std::string const& getEncryptionInfo() const;
    /// Sets the encryption data: stores `value` as given, blanks included.
    /// @param value the new encryption data.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setEncryptionInfo(std::string const& value);
    /// The display rules held by this store; empty after construction.
    /// @return a reference to the stored display rules.
    std::string const& getDisplayRules() const;
    /// Sets the display rules: stores `value` as given, blanks included.
    /// @param value the new display rules.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setDisplayRules(std::string const& value);
    //@}

    /// @name Pages and encoding
    /// Preview and subtitle page numbers and the text encoding: stored as
    /// given, 0 initially.
    //@{
    /// The preview page held by this store; 0 after construction.
    /// @return a reference to the stored preview page.
    int const& getPreviewPage() const;
    /// Sets the preview page: stores `value` as given; every value is accepted.
    /// @param value the new preview page.
    void setPreviewPage(int const& value);
    /// The subtitle page held by this store; 0 after construction.
    /// @return a reference to the stored subtitle page.
    int const& getSubtitlePage() const;
    /// Sets the subtitle page: stores `value` as given; every value is
    /// accepted.
    /// @param value the new subtitle page.
    void setSubtitlePage(int const& value);
    /// The text encoding held by this store; 0 after construction.
    /// @return a reference to the stored text encoding.
    int const& getEncoding() const;
    /// Sets the text encoding: stores `value` as given; every value is
    /// accepted.
    /// @param value the new text encoding.
    void setEncoding(int const& value);
    //@}

    /// @name Size, positions and flags
    /// Stored as given; numbers start at 0, the three flags at true.
    //@{
    /// The receivable flag held by this store; true after construction.
    /// @return the receivable flag, by value.
    bool isReceivable() const;
    /// Sets the receivable flag: stores `value`.
    /// @param value the new receivable flag.
    void setReceivable(bool value);
    /// The file size held by this store; 0 after construction.
    /// @return a reference to the stored file size.
    unsigned long long const& getFileSize() const;
    /// Sets the file size: stores `value` as given; every value is accepted.
    /// @param value the new file size.
    void setFileSize(unsigned long long const& value);
    /// The numeric date held by this store; 0 after construction.
    /// @return a reference to the stored numeric date.
    long long const& getDateNumeric() const;
    /// Sets the numeric date: stores `value` as given; every value is accepted.
    /// @param value the new numeric date.
    void setDateNumeric(long long const& value);
    /// The attributes held by this store; 0 after construction.
    /// @return a reference to the stored attributes.
    int const& getAttributes() const;
    /// Sets the attributes: stores `value` as given; every value is accepted.
    /// @param value the new attributes.
    void setAttributes(int const& value);
    /// The maximum position held by this store; 0 after construction.
    /// @return a reference to the stored maximum position.
    unsigned int const& getMaxPosition() const;
    /// Sets the maximum position: stores `value` as given; every value is
    /// accepted.
    /// @param value the new maximum position.
    void setMaxPosition(unsigned int const& value);
    /// The resume position held by this store; 0 after construction.
    /// @return a reference to the stored resume position.
    unsigned int const& getResumePosition() const;
    /// Sets the resume position: stores `value` as given; every value is
    /// accepted.
    /// @param value the new resume position.
    void setResumePosition(unsigned int const& value);
    /// The volume correction held by this store; 0 after construction.
    /// @return a reference to the stored volume correction.
    int const& getVolumeCorrection() const;
    /// Sets the volume correction: stores `value` as given; every value is
    /// accepted.
    /// @param value the new volume correction.
    void setVolumeCorrection(int const& value);
    /// The visible flag held by this store; true after construction.
    /// @return the visible flag, by value.
    bool isVisible() const;
    /// Sets the visible flag: stores `value`.
    /// @param value the new visible flag.
    void setVisible(bool value);
    /// The selectable flag held by this store; true after construction.
    /// @return the selectable flag, by value.
    bool isSelectable() const;
    /// Sets the selectable flag: stores `value`.
    /// @param value the new selectable flag.
    void setSelectable(bool value);
    /// The sound selection held by this store; 0 after construction.
    /// @return a reference to the stored sound selection.
    unsigned int const& getSoundSelection() const;
    /// Sets the sound selection: stores `value` as given; every value is
    /// accepted.
    /// @param value the new sound selection.
    void setSoundSelection(unsigned int const& value);
    //@}

    /// @name Broadcast
    /// Tuner, logical channel number, EPG theme and network: stored as
    /// given; the network starts at -1, the numbers at 0.
    //@{
    /// The tuner identifier held by this store; empty after construction.
    /// @return a reference to the stored tuner identifier.
    std::string const& getTunerUUID() const;
    /// Sets the tuner identifier: stores `value` as given, blanks included.
    /// @param value the new tuner identifier.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setTunerUUID(std::string const& value);
    /// The logical channel number held by this store; 0 after construction.
    /// @return a reference to the stored logical channel number.
    unsigned int const& getLcn() const;
    /// Sets the logical channel number: stores `value` as given; every value is
    /// accepted.
    /// @param value the new logical channel number.
    void setLcn(unsigned int const& value);
    /// The EPG theme held by this store; 0 after construction.
    /// @return a reference to the stored EPG theme.
    int const& getEpgTheme() const;
    /// Sets the EPG theme: stores `value` as given; every value is accepted.
    /// @param value the new EPG theme.
    void setEpgTheme(int const& value);
    /// The network identifier held by this store; -1 after construction (no
    /// network).
    /// @return a reference to the stored network identifier.
    int const& getNetworkID() const;
    /// Sets the network identifier: stores `value` as given; every value is
    /// accepted.
    /// @param value the new network identifier.
    void setNetworkID(int const& value);
    //@}

    /// @name Music
    /// Artist, album, album UUID, track number, year and bit rate text:
    /// stored as given.
    //@{
    /// The artist held by this store; empty after construction.
    /// @return a reference to the stored artist.
    std::string const& getArtist() const;
    /// Sets the artist: stores `value` as given, blanks included.
    /// @param value the new artist.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setArtist(std::string const& value);
    /// The album held by this store; empty after construction.
    /// @return a reference to the stored album.
    std::string const& getAlbum() const;
    /// Sets the album: stores `value` as given, blanks included.
    /// @param value the new album.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setAlbum(std::string const& value);
    /// The album identifier held by this store; empty after construction.
    /// @return a reference to the stored album identifier.
    std::string const& getAlbumUUID() const;
    /// Sets the album identifier: stores `value` as given, blanks included.
    /// @param value the new album identifier.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setAlbumUUID(std::string const& value);
    /// The track number held by this store; empty after construction.
    /// @return a reference to the stored track number.
    std::string const& getTrackNum() const;
    /// Sets the track number: stores `value` as given, blanks included.
    /// @param value the new track number.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setTrackNum(std::string const& value);
    /// The year held by this store; empty after construction.
    /// @return a reference to the stored year.
    std::string const& getYear() const;
    /// Sets the year: stores `value` as given, blanks included.
    /// @param value the new year.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setYear(std::string const& value);
    /// The bit rate held by this store; empty after construction.
    /// @return a reference to the stored bit rate.
    std::string const& getBitrate() const;
    /// Sets the bit rate: stores `value` as given, blanks included.
    /// @param value the new bit rate.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setBitrate(std::string const& value);
    //@}

    /// @name Recording
    /// The recorder's details, text except the channel number: stored as
    /// given. These getters are not const on the store (they are on the
    /// facade).
    //@{
    /// The recording start time held by this store; empty after construction.
    /// Not const here, unlike the facade's getRecStartTime.
    /// @return a reference to the stored recording start time.
    std::string const& getRecStartTime();
    /// Sets the recording start time: stores `value` as given, blanks included.
    /// @param value the new recording start time.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecStartTime(std::string const& value);
    /// The recording end time held by this store; empty after construction. Not
    /// const here, unlike the facade's getRecEndTime.
    /// @return a reference to the stored recording end time.
    std::string const& getRecEndTime();
    /// Sets the recording end time: stores `value` as given, blanks included.
    /// @param value the new recording end time.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecEndTime(std::string const& value);
    /// The recording duration held by this store; empty after construction. Not
    /// const here, unlike the facade's getRecDuration.
    /// @return a reference to the stored recording duration.
    std::string const& getRecDuration();
    /// Sets the recording duration: stores `value` as given, blanks included.
    /// @param value the new recording duration.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecDuration(std::string const& value);
    /// The recording transport stream ID held by this store; empty after
    /// construction. Not const here, unlike the facade's getRecTsId.
    /// @return a reference to the stored recording transport stream ID.
    std::string const& getRecTsId();
    /// Sets the recording transport stream ID: stores `value` as given, blanks
    /// included.
    /// @param value the new recording transport stream ID.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecTsId(std::string const& value);
    /// The recording service ID held by this store; empty after construction.
    /// Not const here, unlike the facade's getRecServiceId.
    /// @return a reference to the stored recording service ID.
    std::string const& getRecServiceId();
    /// Sets the recording service ID: stores `value` as given, blanks included.
    /// @param value the new recording service ID.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecServiceId(std::string const& value);
    /// The recording original network ID held by this store; empty after
    /// construction. Not const here, unlike the facade's getRecOnId.
    /// @return a reference to the stored recording original network ID.
    std::string const& getRecOnId();
    /// Sets the recording original network ID: stores `value` as given, blanks
    /// included.
    /// @param value the new recording original network ID.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecOnId(std::string const& value);
    /// The recording event type held by this store; empty after construction.
    /// Not const here, unlike the facade's getRecEventType.
    /// @return a reference to the stored recording event type.
    std::string const& getRecEventType();
    /// Sets the recording event type: stores `value` as given, blanks included.
    /// @param value the new recording event type.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecEventType(std::string const& value);
    /// The recording failure type held by this store; empty after construction.
    /// Not const here, unlike the facade's getRecFailType.
    /// @return a reference to the stored recording failure type.
    std::string const& getRecFailType();
    /// Sets the recording failure type: stores `value` as given, blanks
    /// included.
    /// @param value the new recording failure type.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setRecFailType(std::string const& value);
    /// The recording channel number held by this store; 0 after construction.
    /// Not const here, unlike the facade's getRecChnum.
    /// @return a reference to the stored recording channel number.
    int const& getRecChnum();
    /// Sets the recording channel number: stores `value` as given; every value
    /// is accepted.
    /// @param value the new recording channel number.
    void setRecChnum(int const& value);
    //@}

    /// The trimming of the setters that trim: `value` without the blanks at
    /// its start and end. The blanks are exactly space, tab, line feed and
    /// carriage return (" \t\n\r"); vertical tab, form feed and non-ASCII
    /// spaces are kept. Inner characters, blank or not, are kept.
    /// @param value the text to trim.
    /// @return the trimmed copy; "" for an empty or all-blank value.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    static std::string stripValue(std::string const& value);

    /// The empty string answered by the base actor and director getters;
    /// never changed.
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

  /// A facade without store, for the kind classes to fill in.
  ItemInfo();
  /// A facade without store, whatever `other` holds: the kind copy
  /// constructors copy the store.
  /// @param other the record being copied; not read here.
  ItemInfo(ItemInfo const& other);
  /// A facade over `impl`, which it adopts without checking its class; the
  /// kind destructors delete it.
  /// @param impl the field store to own, or null for a facade without store.
  ItemInfo(ItemImpl* impl);
  /// Not available: records are copied with the kind copy constructors or
  /// duplicate(); an assignment would share the store between two owners.
  /// @return never returns (deleted).
  ItemInfo& operator=(ItemInfo const&) = delete;
  /// Leaves the store alone: the kind destructors delete it.
  virtual ~ItemInfo();

  /// A new heap copy of the same kind, made by the kind's copy constructor
  /// (so a store of another kind is not copied, see the kind classes).
  /// @return the copy, allocated with new; the caller owns it and deletes
  /// it through this base class.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  virtual ItemInfo* duplicate() const = 0;

  /// @name Identity
  /// Kind, sub-kind, caption and identifier. setCaption trims; the sub-type
  /// is stored as given; the UUID is given at construction and has no
  /// setter. Without store: ITEM_TYPE_UNKNOWN and `empty`; the sub-type
  /// accessors write the located line "...(): Impl is NULL." instead.
  //@{
  /// The kind of content the record describes, one single-bit value of
  /// itemType. The kind constructor sets the value of its kind
  /// (ITEM_TYPE_FOLDER for a FolderItemInfo, ...); the facade has no setter,
  /// only the store (ItemImpl::setItemType, or assigning a whole store)
  /// changes it, and nothing then keeps the facade class in step. Compared by
  /// operator== and shown by toString on its first line.
  /// @return the item type; ITEM_TYPE_UNKNOWN without a field store.
  itemType getItemType() const;
  /// A finer kind chosen by the service, free text such as "channel" or
  /// "recording"; the library does not interpret it. Empty after construction.
  /// Shown by toString when not empty; operator== leaves it out.
  /// @return the item sub-type; ItemInfo::empty ("") without a field store.
  std::string const& getItemSubType() const;
  /// Sets the item sub-type: stores `value` as given, blanks included. Without
  /// a field store it changes nothing and traces.
  /// @param value the new item sub-type.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setItemSubType(std::string const& value);
  /// The name under which the item is listed. VfsFixedFolder::findEntry looks
  /// children up by it, and the "+dc:title" and "-dc:title" orders sort by it
  /// (byte-wise), not by the title. The first constructor argument, as given
  /// (construction does not trim). Compared by operator== and shown by toString
  /// when not empty.
  /// @return the caption; ItemInfo::empty ("") without a field store.
  std::string const& getCaption() const;
  /// Sets the caption: stores `value` without the spaces, tabs, line feeds and
  /// carriage returns at its start and end (see ItemImpl::stripValue). Without
  /// a field store it changes nothing and traces.
  /// @param value the new caption.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setCaption(std::string const& value);
  /// The identifier of the item: "UUID..." path queries, VfsEntry::findUuid and
  /// VfsFixedFolder::findEntrybyUUID look items up by it. Nothing checks that
  /// it is unique. The second constructor argument, as given; it has no
  /// setter. Compared by operator== and shown by toString when not empty.
  /// @return the identifier; ItemInfo::empty ("") without a field store.
  std::string const& getUUID() const;
  //@}

  /// @name Origin
  /// Where the item was found or made: the original ancestor, creator,
  /// original UUID and volume. Stored as given; without store `empty`.
  //@{
  /// The container the item originally belonged to, as text (an identifier or a
  /// name, as the service writes it). Empty after construction. Compared by
  /// operator== and shown by toString when not empty.
  /// @return the original ancestor; ItemInfo::empty ("") without a field store.
  std::string const& getOriginalAncestor() const;
  /// Sets the original ancestor: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new original ancestor.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setOriginalAncestor(std::string const& value);
  /// Who made the content (author, producer or recording device), as text.
  /// Empty after construction. Compared by operator== and shown by toString
  /// when not empty.
  /// @return the creator; ItemInfo::empty ("") without a field store.
  std::string const& getCreator() const;
  /// Sets the creator: stores `value` as given, blanks included. Without a
  /// field store it changes nothing and traces.
  /// @param value the new creator.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setCreator(std::string const& value);
  /// The identifier of the item this one was copied or derived from. Empty
  /// after construction. Shown by toString when not empty; operator== leaves it
  /// out.
  /// @return the original identifier; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getOriginalUuid() const;
  /// Sets the original identifier: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new original identifier.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setOriginalUuid(std::string const& value);
  /// The volume (disk, USB stick, network share) the content was first found
  /// on. Empty after construction. Shown by toString when not empty; operator==
  /// leaves it out.
  /// @return the original volume; ItemInfo::empty ("") without a field store.
  std::string const& getOriginalVolume() const;
  /// Sets the original volume: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new original volume.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setOriginalVolume(std::string const& value);
  //@}

  /// @name Location and play time
  /// Where the content is (locator), its play time and its thumbnail URL.
  /// The setters trim; without store `empty`.
  //@{
  /// Where a player finds the content, usually a selection URI such as
  /// "file://usb0/Music/a.mp3" built with mdcSelectionCreate. Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the locator; ItemInfo::empty ("") without a field store.
  std::string const& getItemLocator() const;
  /// Sets the locator: stores `value` without the spaces, tabs, line feeds and
  /// carriage returns at its start and end (see ItemImpl::stripValue). Without
  /// a field store it changes nothing and traces.
  /// @param value the new locator.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setItemLocator(std::string const& value);
  /// How long the content plays, as text such as "00:42:17". Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the play time; ItemInfo::empty ("") without a field store.
  std::string const& getPlaytime() const;
  /// Sets the play time: stores `value` without the spaces, tabs, line feeds
  /// and carriage returns at its start and end (see ItemImpl::stripValue).
  /// Without a field store it changes nothing and traces.
  /// @param value the new play time.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setPlaytime(std::string const& value);
  /// The address of a small picture that stands for the item in a list. Empty
  /// after construction. Compared by operator== and shown by toString when not
  /// empty.
  /// @return the thumbnail URL; ItemInfo::empty ("") without a field store.
  std::string const& getThumbURL() const;
  /// Sets the thumbnail URL: stores `value` without the spaces, tabs, line
  /// feeds and carriage returns at its start and end (see
  /// ItemImpl::stripValue). Without a field store it changes nothing and
  /// traces.
  /// @param value the new thumbnail URL.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setThumbURL(std::string const& value);
  //@}

  /// @name Station
  /// The broadcasting station's name, description and long description.
  /// Stored as given; without store `empty`.
  //@{
  /// The name of the broadcasting station (channel) the content comes from.
  /// Empty after construction. Compared by operator== and shown by toString
  /// when not empty.
  /// @return the station name; ItemInfo::empty ("") without a field store.
  std::string const& getStationName() const;
  /// Sets the station name: stores `value` as given, blanks included. Without a
  /// field store it changes nothing and traces.
  /// @param value the new station name.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setStationName(std::string const& value);
  /// A short description of the broadcasting station. Empty after construction.
  /// Compared by operator== and shown by toString when not empty.
  /// @return the station description; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getStationDescription() const;
  /// Sets the station description: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new station description.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setStationDescription(std::string const& value);
  /// The full description of the broadcasting station, beside the short one of
  /// getStationDescription. Empty after construction. Compared by operator==
  /// and shown by toString when not empty.
  /// @return the long station description; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getLongStationDescription() const;
  /// Sets the long station description: stores `value` as given, blanks
  /// included. Without a field store it changes nothing and traces.
  /// @param value the new long station description.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setLongStationDescription(std::string const& value);
  //@}

  /// @name Description
  /// Title, genre, description, comment and date as text. The setters trim;
  /// without store `empty`.
  //@{
  /// The title of the content itself (a programme, a film, a track), which may
  /// differ from the caption it is listed under; no sort order uses it. Empty
  /// after construction. Compared by operator== and shown by toString when not
  /// empty.
  /// @return the title; ItemInfo::empty ("") without a field store.
  std::string const& getTitle() const;
  /// Sets the title: stores `value` without the spaces, tabs, line feeds and
  /// carriage returns at its start and end (see ItemImpl::stripValue). Without
  /// a field store it changes nothing and traces.
  /// @param value the new title.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setTitle(std::string const& value);
  /// The genre of the content as text, such as "Jazz" or "Documentary". Empty
  /// after construction. Compared by operator== and shown by toString when not
  /// empty.
  /// @return the genre; ItemInfo::empty ("") without a field store.
  std::string const& getGenre() const;
  /// Sets the genre: stores `value` without the spaces, tabs, line feeds and
  /// carriage returns at its start and end (see ItemImpl::stripValue). Without
  /// a field store it changes nothing and traces.
  /// @param value the new genre.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setGenre(std::string const& value);
  /// A longer text about the content, such as a programme synopsis. Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the description; ItemInfo::empty ("") without a field store.
  std::string const& getDescription() const;
  /// Sets the description: stores `value` without the spaces, tabs, line feeds
  /// and carriage returns at its start and end (see ItemImpl::stripValue).
  /// Without a field store it changes nothing and traces.
  /// @param value the new description.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setDescription(std::string const& value);
  /// A free remark on the item, from the content or the user. Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the comment; ItemInfo::empty ("") without a field store.
  std::string const& getComment() const;
  /// Sets the comment: stores `value` without the spaces, tabs, line feeds and
  /// carriage returns at its start and end (see ItemImpl::stripValue). Without
  /// a field store it changes nothing and traces.
  /// @param value the new comment.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setComment(std::string const& value);
  /// The date of the content as text for display; the date orders sort by
  /// getDateNumeric instead, and nothing keeps the two in step. Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the date text; ItemInfo::empty ("") without a field store.
  std::string const& getDate() const;
  /// Sets the date text: stores `value` without the spaces, tabs, line feeds
  /// and carriage returns at its start and end (see ItemImpl::stripValue).
  /// Without a field store it changes nothing and traces.
  /// @param value the new date text.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setDate(std::string const& value);
  //@}

  /// @name Administration
  /// User index, parental rating, creation and modification time, encryption
  /// scheme and data, display rules. Stored as given; without store `empty`.
  //@{
  /// A position or key the user gave the item (a favourite number, a list
  /// position), as text. Empty after construction. Compared by operator== and
  /// shown by toString when not empty.
  /// @return the user index; ItemInfo::empty ("") without a field store.
  std::string const& getUserIndex() const;
  /// Sets the user index: stores `value` as given, blanks included. Without a
  /// field store it changes nothing and traces.
  /// @param value the new user index.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setUserIndex(std::string const& value);
  /// The age rating of the content, as text (the library enforces nothing).
  /// Empty after construction. Shown by toString when not empty; operator==
  /// leaves it out.
  /// @return the parental rating; ItemInfo::empty ("") without a field store.
  std::string const& getParentalRating() const;
  /// Sets the parental rating: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new parental rating.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setParentalRating(std::string const& value);
  /// When the content (file or recording) was created, as text. Empty after
  /// construction. Shown by toString when not empty; operator== leaves it out.
  /// @return the creation time; ItemInfo::empty ("") without a field store.
  std::string const& getCreationTime() const;
  /// Sets the creation time: stores `value` as given, blanks included. Without
  /// a field store it changes nothing and traces.
  /// @param value the new creation time.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setCreationTime(std::string const& value);
  /// When the content was last changed, as text. Empty after construction.
  /// Shown by toString when not empty; operator== leaves it out.
  /// @return the modification time; ItemInfo::empty ("") without a field store.
  std::string const& getModificationTime() const;
  /// Sets the modification time: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new modification time.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setModificationTime(std::string const& value);
  /// The name of the scheme that protects the content, such as "aes-128-cbc";
  /// "" for unprotected content. Empty after construction. Shown by toString
  /// when not empty; operator== leaves it out.
  /// @return the encryption scheme; ItemInfo::empty ("") without a field store.
  std::string const& getEncryptionScheme() const;
  /// Sets the encryption scheme: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new encryption scheme.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setEncryptionScheme(std::string const& value);
  /// What a player needs beside the scheme to open protected content, such as a
  /// key reference. Empty after construction. Shown by toString when not empty;
  /// operator== leaves it out.
  /// @return the encryption data; ItemInfo::empty ("") without a field store.
  std::string const& getEncryptionInfo() const;
  /// Sets the encryption data: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new encryption data.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setEncryptionInfo(std::string const& value);
  /// Rules for how or when the item may be shown, as text the service defines.
  /// Empty after construction. Shown by toString when not empty; operator==
  /// leaves it out.
  /// @return the display rules; ItemInfo::empty ("") without a field store.
  std::string const& getDisplayRules() const;
  /// Sets the display rules: stores `value` as given, blanks included. Without
  /// a field store it changes nothing and traces.
  /// @param value the new display rules.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setDisplayRules(std::string const& value);
  //@}

  /// @name Pages and encoding
  /// Teletext preview and subtitle pages and the text encoding, 0 after
  /// construction. Stored as given; without store `i32zero`.
  //@{
  /// The teletext page shown as a preview of the content. 0 after construction.
  /// Neither compared by operator== nor shown by toString.
  /// @return the preview page; ItemInfo::i32zero (0) without a field store.
  int const& getPreviewPage() const;
  /// Sets the preview page: stores `value` as given; every value is accepted.
  /// Without a field store it changes nothing and traces.
  /// @param value the new preview page.
  void setPreviewPage(int const& value);
  /// The teletext page that carries the subtitles. 0 after construction.
  /// Neither compared by operator== nor shown by toString.
  /// @return the subtitle page; ItemInfo::i32zero (0) without a field store.
  int const& getSubtitlePage() const;
  /// Sets the subtitle page: stores `value` as given; every value is accepted.
  /// Without a field store it changes nothing and traces.
  /// @param value the new subtitle page.
  void setSubtitlePage(int const& value);
  /// The character encoding of the item's texts, as a code the service defines
  /// (the library stores texts as bytes and converts nothing). 0 after
  /// construction. Neither compared by operator== nor shown by toString.
  /// @return the text encoding; ItemInfo::i32zero (0) without a field store.
  int const& getEncoding() const;
  /// Sets the text encoding: stores `value` as given; every value is accepted.
  /// Without a field store it changes nothing and traces.
  /// @param value the new text encoding.
  void setEncoding(int const& value);
  //@}

  /// @name Size, positions and flags
  /// File size, numeric date, attributes, positions, volume correction,
  /// sound selection (0 after construction) and the receivable, visible and
  /// selectable flags (true after construction). Stored as given; without
  /// store the matching zero static (`zero`, `i64zero`, `i32zero`,
  /// `u32zero`) or false.
  //@{
  /// Whether the content can be received or played now; a service clears it,
  /// for example, for a channel without signal. True after construction.
  /// Neither compared by operator== nor shown by toString.
  /// @return the receivable flag; false without a field store.
  bool isReceivable() const;
  /// Sets the receivable flag: stores `value`. Without a field store it changes
  /// nothing and traces.
  /// @param value the new receivable flag.
  void setReceivable(bool value);
  /// The size of the content in bytes. 0 after construction. Shown by toString
  /// when not 0; operator== leaves it out.
  /// @return the file size; ItemInfo::zero (0) without a field store.
  unsigned long long const& getFileSize() const;
  /// Sets the file size: stores `value` as given; every value is accepted.
  /// Without a field store it changes nothing and traces.
  /// @param value the new file size.
  void setFileSize(unsigned long long const& value);
  /// The date of the content as a number, such as seconds since 1970: the fixed
  /// folder's date orders sort by it (newest first for the default order). 0
  /// after construction. Shown by toString when not 0; operator== leaves it
  /// out.
  /// @return the numeric date; ItemInfo::i64zero (0) without a field store.
  long long const& getDateNumeric() const;
  /// Sets the numeric date: stores `value` as given; every value is accepted.
  /// Without a field store it changes nothing and traces.
  /// @param value the new numeric date.
  void setDateNumeric(long long const& value);
  /// Attribute bits the service defines (the library sets and tests none). 0
  /// after construction. Neither compared by operator== nor shown by toString.
  /// @return the attributes; ItemInfo::i32zero (0) without a field store.
  int const& getAttributes() const;
  /// Sets the attributes: stores `value` as given; every value is accepted.
  /// Without a field store it changes nothing and traces.
  /// @param value the new attributes.
  void setAttributes(int const& value);
  /// The last play position of the content, in the unit the player uses for
  /// positions. 0 after construction. Neither compared by operator== nor shown
  /// by toString.
  /// @return the maximum position; ItemInfo::u32zero (0) without a field store.
  unsigned int const& getMaxPosition() const;
  /// Sets the maximum position: stores `value` as given; every value is
  /// accepted. Without a field store it changes nothing and traces.
  /// @param value the new maximum position.
  void setMaxPosition(unsigned int const& value);
  /// The play position at which playing resumes, in the unit of getMaxPosition.
  /// 0 after construction. Shown by toString when not 0; operator== leaves it
  /// out.
  /// @return the resume position; ItemInfo::u32zero (0) without a field store.
  unsigned int const& getResumePosition() const;
  /// Sets the resume position: stores `value` as given; every value is
  /// accepted. Without a field store it changes nothing and traces.
  /// @param value the new resume position.
  void setResumePosition(unsigned int const& value);
  /// A signed adjustment of the sound volume for this content. 0 after
  /// construction. Neither compared by operator== nor shown by toString.
  /// @return the volume correction; ItemInfo::i32zero (0) without a field
  /// store.
  int const& getVolumeCorrection() const;
  /// Sets the volume correction: stores `value` as given; every value is
  /// accepted. Without a field store it changes nothing and traces.
  /// @param value the new volume correction.
  void setVolumeCorrection(int const& value);
  /// Whether a client should list the item at all (the library's trees and
  /// iterators hide nothing themselves). True after construction. Neither
  /// compared by operator== nor shown by toString.
  /// @return the visible flag; false without a field store.
  bool isVisible() const;
  /// Sets the visible flag: stores `value`. Without a field store it changes
  /// nothing and traces.
  /// @param value the new visible flag.
  void setVisible(bool value);
  /// Whether the user may select (open or play) the item; the library
  /// enforces nothing. True after construction. Neither compared by
  /// operator== nor shown by toString.
  /// @return the selectable flag; false without a field store.
  bool isSelectable() const;
  /// Sets the selectable flag: stores `value`. Without a field store it changes
  /// nothing and traces.
  /// @param value the new selectable flag.
  void setSelectable(bool value);
  /// Which sound track of the content is chosen, as a number the service
  /// defines. 0 after construction. Neither compared by operator== nor shown by
  /// toString.
  /// @return the sound selection; ItemInfo::u32zero (0) without a field store.
  unsigned int const& getSoundSelection() const;
  /// Sets the sound selection: stores `value` as given; every value is
  /// accepted. Without a field store it changes nothing and traces.
  /// @param value the new sound selection.
  void setSoundSelection(unsigned int const& value);
  //@}

  /// @name Broadcast
  /// Tuner UUID, logical channel number, EPG theme and network ID (-1 after
  /// construction, the others 0 or empty). Stored as given; without store
  /// `empty`, `u32zero` or `i32zero` (so the network answers 0).
  //@{
  /// The identifier of the tuner that receives the content. Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the tuner identifier; ItemInfo::empty ("") without a field store.
  std::string const& getTunerUUID() const;
  /// Sets the tuner identifier: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new tuner identifier.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setTunerUUID(std::string const& value);
  /// The channel number under which the viewer selects the station. 0 after
  /// construction. Compared by operator==; toString does not show it.
  /// @return the logical channel number; ItemInfo::u32zero (0) without a field
  /// store.
  unsigned int const& getLcn() const;
  /// Sets the logical channel number: stores `value` as given; every value is
  /// accepted. Without a field store it changes nothing and traces.
  /// @param value the new logical channel number.
  void setLcn(unsigned int const& value);
  /// The content category of the programme guide (news, sport, film, ...), as
  /// the guide's code. 0 after construction. Compared by operator==; toString
  /// does not show it.
  /// @return the EPG theme; ItemInfo::i32zero (0) without a field store.
  int const& getEpgTheme() const;
  /// Sets the EPG theme: stores `value` as given; every value is accepted.
  /// Without a field store it changes nothing and traces.
  /// @param value the new EPG theme.
  void setEpgTheme(int const& value);
  /// The identifier of the broadcast network the content comes from. -1 after
  /// construction (no network), while a record without field store answers 0.
  /// Compared by operator==; toString does not show it.
  /// @return the network identifier; ItemInfo::i32zero (0) without a field
  /// store.
  int const& getNetworkID() const;
  /// Sets the network identifier: stores `value` as given; every value is
  /// accepted. Without a field store it changes nothing and traces.
  /// @param value the new network identifier.
  void setNetworkID(int const& value);
  //@}

  /// @name Music
  /// Artist, album, album UUID, track number, year and bit rate, all text.
  /// Stored as given; without store `empty`.
  //@{
  /// The performing artist of a music track. Empty after construction. Compared
  /// by operator==; toString does not show it.
  /// @return the artist; ItemInfo::empty ("") without a field store.
  std::string const& getArtist() const;
  /// Sets the artist: stores `value` as given, blanks included. Without a field
  /// store it changes nothing and traces.
  /// @param value the new artist.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setArtist(std::string const& value);
  /// The name of the album a track belongs to. Empty after construction.
  /// Compared by operator==; toString does not show it.
  /// @return the album; ItemInfo::empty ("") without a field store.
  std::string const& getAlbum() const;
  /// Sets the album: stores `value` as given, blanks included. Without a field
  /// store it changes nothing and traces.
  /// @param value the new album.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setAlbum(std::string const& value);
  /// The identifier of the album a track belongs to, for grouping tracks by
  /// album. Empty after construction. Compared by operator==; toString does not
  /// show it.
  /// @return the album identifier; ItemInfo::empty ("") without a field store.
  std::string const& getAlbumUUID() const;
  /// Sets the album identifier: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new album identifier.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setAlbumUUID(std::string const& value);
  /// The position of a track on its album, as text. Empty after construction.
  /// Compared by operator==; toString does not show it.
  /// @return the track number; ItemInfo::empty ("") without a field store.
  std::string const& getTrackNum() const;
  /// Sets the track number: stores `value` as given, blanks included. Without a
  /// field store it changes nothing and traces.
  /// @param value the new track number.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setTrackNum(std::string const& value);
  /// The year the content was published, as text such as "1959". Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the year; ItemInfo::empty ("") without a field store.
  std::string const& getYear() const;
  /// Sets the year: stores `value` as given, blanks included. Without a field
  /// store it changes nothing and traces.
  /// @param value the new year.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setYear(std::string const& value);
  /// The bit rate of the encoded content, as text such as "1411". Empty after
  /// construction. Compared by operator==; toString does not show it.
  /// @return the bit rate; ItemInfo::empty ("") without a field store.
  std::string const& getBitrate() const;
  /// Sets the bit rate: stores `value` as given, blanks included. Without a
  /// field store it changes nothing and traces.
  /// @param value the new bit rate.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setBitrate(std::string const& value);
  //@}

  /// @name Recording
  /// The recorder's start, end and duration, transport stream, service and
  /// original network IDs, event and failure type (text) and channel number.
  /// Stored as given; without store `empty` or `i32zero`.
  //@{
  /// When the recorder started (or is to start) recording, as text. Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the recording start time; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getRecStartTime() const;
  /// Sets the recording start time: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new recording start time.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecStartTime(std::string const& value);
  /// When the recorder stopped (or is to stop) recording, as text. Empty after
  /// construction. Compared by operator== and shown by toString when not empty.
  /// @return the recording end time; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getRecEndTime() const;
  /// Sets the recording end time: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new recording end time.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecEndTime(std::string const& value);
  /// How long the recording lasts, as text. Empty after construction. Compared
  /// by operator== and shown by toString when not empty.
  /// @return the recording duration; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getRecDuration() const;
  /// Sets the recording duration: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new recording duration.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecDuration(std::string const& value);
  /// The transport stream identifier of the recorded service, as text. Empty
  /// after construction. Compared by operator== and shown by toString when not
  /// empty.
  /// @return the recording transport stream ID; ItemInfo::empty ("") without a
  /// field store.
  std::string const& getRecTsId() const;
  /// Sets the recording transport stream ID: stores `value` as given, blanks
  /// included. Without a field store it changes nothing and traces.
  /// @param value the new recording transport stream ID.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecTsId(std::string const& value);
  /// The service identifier of the recorded programme's channel, as text. Empty
  /// after construction. Compared by operator== and shown by toString when not
  /// empty.
  /// @return the recording service ID; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getRecServiceId() const;
  /// Sets the recording service ID: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new recording service ID.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecServiceId(std::string const& value);
  /// The original network identifier of the recorded service, as text. Empty
  /// after construction. Compared by operator== and shown by toString when not
  /// empty.
  /// @return the recording original network ID; ItemInfo::empty ("") without a
  /// field store.
  std::string const& getRecOnId() const;
  /// Sets the recording original network ID: stores `value` as given, blanks
  /// included. Without a field store it changes nothing and traces.
  /// @param value the new recording original network ID.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecOnId(std::string const& value);
  /// The recorder's state or event for this recording, as text such as
  /// "running". Empty after construction. Compared by operator== and shown by
  /// toString when not empty.
  /// @return the recording event type; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getRecEventType() const;
  /// Sets the recording event type: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new recording event type.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecEventType(std::string const& value);
  /// Why the recording failed, as text; "" for a recording without failure.
  /// Empty after construction. Compared by operator== and shown by toString
  /// when not empty.
  /// @return the recording failure type; ItemInfo::empty ("") without a field
  /// store.
  std::string const& getRecFailType() const;
  /// Sets the recording failure type: stores `value` as given, blanks included.
  /// Without a field store it changes nothing and traces.
  /// @param value the new recording failure type.
  /// @throws std::bad_alloc if the copy cannot be allocated.
  void setRecFailType(std::string const& value);
  /// The channel number the recording was made from. 0 after construction.
  /// Compared by operator== and shown by toString when not 0.
  /// @return the recording channel number; ItemInfo::i32zero (0) without a
  /// field store.
  int const& getRecChnum() const;
  /// Sets the recording channel number: stores `value` as given; every value is
  /// accepted. Without a field store it changes nothing and traces.
  /// @param value the new recording channel number.
  void setRecChnum(int const& value);
  //@}

  /// @name Actor and director
  /// Through the store's virtual slots: only a video store keeps them (as
  /// given); other stores answer `empty` and ignore the setters. Without
  /// store `empty`.
  //@{
  /// The performer credited in a video, through the store's virtual slot:
  /// a video store answers what setActor stored (as given, blanks included),
  /// every other store "". Empty after construction. Compared by operator==;
  /// shown by a video store's toString when not empty.
  /// @return the actor; ItemInfo::empty ("") without a field store, and
  /// ItemImpl::empty ("") from a store of another kind.
  std::string const& getActor() const;
  /// Sets the actor of a video: a video store stores `value` as given,
  /// blanks included; any other store ignores it. Without a field store it
  /// changes nothing and traces.
  /// @param value the new actor.
  /// @throws std::bad_alloc if a video store's copy cannot be allocated.
  void setActor(std::string const& value);
  /// The person who directed a video, through the store's virtual slot: a
  /// video store answers what setDirector stored (as given, blanks
  /// included), every other store "". Empty after construction. Compared by
  /// operator==; shown by a video store's toString when not empty.
  /// @return the director; ItemInfo::empty ("") without a field store, and
  /// ItemImpl::empty ("") from a store of another kind.
  std::string const& getDirector() const;
  /// Sets the director of a video: a video store stores `value` as given,
  /// blanks included; any other store ignores it. Without a field store it
  /// changes nothing and traces.
  /// @param value the new director.
  /// @throws std::bad_alloc if a video store's copy cannot be allocated.
  void setDirector(std::string const& value);
  //@}

  /// The store's text dump for logs (see ItemImpl::toString; a video store
  /// adds its own fields).
  /// @return the dump; "" without a field store, after the trace line
  /// "toString(): impl is NULL".
  /// @throws std::bad_alloc if the text cannot be allocated.
  std::string toString() const;

  /// Whether two records describe the same content. Reads, through the
  /// getters of both records, in this order: UUID, item type, play time,
  /// thumbnail URL, locator, caption, station name, station description,
  /// long station description, title, artist, album, album UUID, track
  /// number, user index, genre, year, bit rate, actor, director,
  /// description, comment, date text, tuner UUID, logical channel number,
  /// EPG theme, network ID, the recording's start, end, duration, transport
  /// stream ID, service ID, original network ID, event type, failure type
  /// and channel number, original ancestor and creator; it stops at the
  /// first pair that differs. Texts compare byte for byte. The record
  /// classes are not compared, only the stored item types. The sub-type,
  /// the original UUID and volume, the administration texts other than the
  /// user index, the file size, the numeric date, the positions, pages,
  /// encoding, attributes, volume correction, sound selection, the flags and
  /// the video start and end times take no part. A record without field
  /// store compares as its neutral answers (and traces once per getter
  /// called), so two such records are equal.
  /// @param other the record to compare with.
  /// @return true if every compared field is equal.
  bool operator==(ItemInfo const& other);
  /// Whether two records differ in a field that operator== compares.
  /// @param other the record to compare with.
  /// @return the negation of operator==(other).
  bool operator!=(ItemInfo const& other);

  /// @name Neutral answers
  /// What the getters of a facade without store answer: zero or empty,
  /// never changed.
  //@{
  /// 0, the file size answered without a field store.
  static const unsigned long long zero;
  /// 0, the numeric date answered without a field store.
  static const long long i64zero;
  /// 0, the answer of the signed 32-bit getters (pages, encoding,
  /// attributes, volume correction, EPG theme, network ID, recording
  /// channel number) without a field store.
  static const int i32zero;
  /// 0, the answer of the unsigned 32-bit getters (positions, sound
  /// selection, logical channel number) without a field store.
  static const unsigned int u32zero;
  /// "", the answer of every text getter without a field store.
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
  /// A record of unknown content with a new plain ItemImpl of kind
  /// ITEM_TYPE_UNKNOWN holding `caption` and `uuid`; every other field has
  /// its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  UnknownItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies any store, of whatever class, as a plain ItemImpl: every field
  /// of the record is kept (the stored item type too), but a video store
  /// loses its start and end time, actor and director. When `other` has no
  /// store, neither has the copy.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  UnknownItemInfo(UnknownItemInfo const& other);
  /// Deletes the store, if any.
  ~UnknownItemInfo() override;
  /// A new copy of this record of unknown content, made by the copy
  /// constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
};

/// A record of kind ITEM_TYPE_MUSIC.
class MA_COMMON_EXPORT MusicItemInfo : public ItemInfo {
 public:
  /// The music store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT MusicItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_MUSIC: caption and identifier as given, every
    /// other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    MusicItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    MusicItemImpl(MusicItemImpl const& other);
    /// Destroys the fields.
    ~MusicItemImpl() override;
  };

  /// A music record with a new music store of kind ITEM_TYPE_MUSIC holding
  /// `caption` and `uuid`; every other field has its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  MusicItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a music store (or of a class derived from it);
  /// otherwise, or when `other` has none, the copy silently has no store and
  /// every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  MusicItemInfo(MusicItemInfo const& other);
  /// Deletes the store, if any.
  ~MusicItemInfo() override;
  /// A new copy of this music record, made by the copy constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as a music store, for the accessors the facade lacks
  /// (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  MusicItemImpl* getImpl();
  /// The store as a music store, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  MusicItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_VIDEO: the only kind with fields of its own.
class MA_COMMON_EXPORT VideoItemInfo : public ItemInfo {
 public:
  /// The only store with fields of its own: start and end time, actor and
  /// director, all empty after construction.
  class MA_COMMON_EXPORT VideoItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_VIDEO: caption and identifier as given, every
    /// other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    VideoItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field, the start and end time, actor and director included.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    VideoItemImpl(VideoItemImpl const& other);
    /// Destroys the fields.
    ~VideoItemImpl() override;

    /// The base dump (ItemImpl::toString) followed by the lines "start    : ",
    /// "end      : ", "actor    : " and "director : " with their values,
    /// each only when the value is not empty.
    /// @return the text, each line ended by a line feed.
    /// @throws std::bad_alloc if the text cannot be allocated.
    std::string toString() const override;
    /// The performer credited in this video; empty after construction.
    /// @return a reference to the stored actor, as setActor stored it.
    std::string const& getActor() const override;
    /// Sets the actor: stores `value` as given, blanks included (not
    /// trimmed).
    /// @param value the new actor.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setActor(std::string const& value) override;
    /// The person who directed this video; empty after construction.
    /// @return a reference to the stored director, as setDirector stored it.
    std::string const& getDirector() const override;
    /// Sets the director: stores `value` as given, blanks included (not
    /// trimmed).
    /// @param value the new director.
    /// @throws std::bad_alloc if the copy cannot be allocated.
    void setDirector(std::string const& value) override;

   private:
    friend class VideoItemInfo;

    std::string m_startTime;
    std::string m_endTime;
    std::string m_actor;
    std::string m_director;
  };

  /// A video record with a new video store of kind ITEM_TYPE_VIDEO holding
  /// `caption` and `uuid`; every other field has its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  VideoItemInfo(std::string const& caption, std::string const& uuid);
  /// A video record over `impl`, adopted without checking its class; the
  /// record deletes it. getImpl and the start and end time accessors find no
  /// video store unless it is one; the other accessors work on any store.
  /// @param impl the field store to own, or null for a record without store.
  VideoItemInfo(ItemImpl* impl);
  /// Copies the store if it is a video store (or of a class derived from it);
  /// otherwise, or when `other` has none, the copy silently has no store and
  /// every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  VideoItemInfo(VideoItemInfo const& other);
  /// Deletes the store, if any.
  ~VideoItemInfo() override;
  /// A new copy of this video record, made by the copy constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as a video store, for the accessors the facade lacks
  /// (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  VideoItemImpl* getImpl();
  /// The store as a video store, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  VideoItemImpl const* getImpl() const;

  /// @name Start and end time
  /// The video's own two times, held only by a video store. Without one
  /// (no store, or a store of another class) the getters answer "" and the
  /// setters change nothing; both write only getImpl's trace line.
  //@{
  /// When the video starts, as text (a clock time such as "00:00:00" or a
  /// broadcast start, as the service writes it). Empty after construction.
  /// Shown by toString when not empty; operator== leaves it out.
  /// @return the start time; ItemInfo::empty ("") without a video store.
  std::string const& getStartTime() const;
  /// When the video ends, as text in the form of the start time. Empty
  /// after construction. Shown by toString when not empty; operator== leaves
  /// it out.
  /// @return the end time; ItemInfo::empty ("") without a video store.
  std::string const& getEndTime() const;
  /// Sets the start time: stores `value` without the spaces, tabs, line
  /// feeds and carriage returns at its start and end (see
  /// ItemImpl::stripValue). Without a video store it changes nothing.
  /// @param value the new start time, taken by value.
  /// @throws std::bad_alloc if the trimmed copy cannot be allocated.
  void setStartTime(std::string value);
  /// Sets the end time: stores `value` without the spaces, tabs, line feeds
  /// and carriage returns at its start and end (see ItemImpl::stripValue).
  /// Without a video store it changes nothing.
  /// @param value the new end time, taken by value.
  /// @throws std::bad_alloc if the trimmed copy cannot be allocated.
  void setEndTime(std::string value);
  //@}
};

/// A record of kind ITEM_TYPE_PICTURE.
class MA_COMMON_EXPORT PictureItemInfo : public ItemInfo {
 public:
  /// The picture store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT PictureItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_PICTURE: caption and identifier as given,
    /// every other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    PictureItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    PictureItemImpl(PictureItemImpl const& other);
    /// Destroys the fields.
    ~PictureItemImpl() override;
  };

  /// A picture record with a new picture store of kind ITEM_TYPE_PICTURE
  /// holding `caption` and `uuid`; every other field has its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  PictureItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a picture store (or of a class derived from it);
  /// otherwise, or when `other` has none, the copy silently has no store and
  /// every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  PictureItemInfo(PictureItemInfo const& other);
  /// Deletes the store, if any.
  ~PictureItemInfo() override;
  /// A new copy of this picture record, made by the copy constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as a picture store, for the accessors the facade lacks
  /// (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  PictureItemImpl* getImpl();
  /// The store as a picture store, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  PictureItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_PLAYLIST.
class MA_COMMON_EXPORT PlaylistItemInfo : public ItemInfo {
 public:
  /// The playlist store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT PlaylistItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_PLAYLIST: caption and identifier as given,
    /// every other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    PlaylistItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    PlaylistItemImpl(PlaylistItemImpl const& other);
    /// Destroys the fields.
    ~PlaylistItemImpl() override;
  };

  /// A playlist record with a new playlist store of kind ITEM_TYPE_PLAYLIST
  /// holding `caption` and `uuid`; every other field has its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  PlaylistItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a playlist store (or of a class derived from
  /// it); otherwise, or when `other` has none, the copy silently has no store
  /// and every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  PlaylistItemInfo(PlaylistItemInfo const& other);
  /// Deletes the store, if any.
  ~PlaylistItemInfo() override;
  /// A new copy of this playlist record, made by the copy constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as a playlist store, for the accessors the facade lacks
  /// (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  PlaylistItemImpl* getImpl();
  /// The store as a playlist store, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  PlaylistItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_FOLDER.
class MA_COMMON_EXPORT FolderItemInfo : public ItemInfo {
 public:
  /// The folder store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT FolderItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_FOLDER: caption and identifier as given, every
    /// other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    FolderItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    FolderItemImpl(FolderItemImpl const& other);
    /// Destroys the fields.
    ~FolderItemImpl() override;
  };

  /// A folder record with a new folder store of kind ITEM_TYPE_FOLDER holding
  /// `caption` and `uuid`; every other field has its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  FolderItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a folder store (or of a class derived from it);
  /// otherwise, or when `other` has none, the copy silently has no store and
  /// every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  FolderItemInfo(FolderItemInfo const& other);
  /// Deletes the store, if any.
  ~FolderItemInfo() override;
  /// A new copy of this folder record, made by the copy constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as a folder store, for the accessors the facade lacks
  /// (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  FolderItemImpl* getImpl();
  /// The store as a folder store, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  FolderItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_DOCUMENT.
class MA_COMMON_EXPORT DocumentItemInfo : public ItemInfo {
 public:
  /// The document store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT DocumentItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_DOCUMENT: caption and identifier as given,
    /// every other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    DocumentItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    DocumentItemImpl(DocumentItemImpl const& other);
    /// Destroys the fields.
    ~DocumentItemImpl() override;
  };

  /// A document record with a new document store of kind ITEM_TYPE_DOCUMENT
  /// holding `caption` and `uuid`; every other field has its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  DocumentItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is a document store (or of a class derived from
  /// it); otherwise, or when `other` has none, the copy silently has no store
  /// and every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  DocumentItemInfo(DocumentItemInfo const& other);
  /// Deletes the store, if any.
  ~DocumentItemInfo() override;
  /// A new copy of this document record, made by the copy constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as a document store, for the accessors the facade lacks
  /// (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  DocumentItemImpl* getImpl();
  /// The store as a document store, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  DocumentItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_OTHER.
class MA_COMMON_EXPORT OtherItemInfo : public ItemInfo {
 public:
  /// The store of other content: marks the kind, adds no fields.
  class MA_COMMON_EXPORT OtherItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_OTHER: caption and identifier as given, every
    /// other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    OtherItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    OtherItemImpl(OtherItemImpl const& other);
    /// Destroys the fields.
    ~OtherItemImpl() override;
  };

  /// A record of other content with a new OtherItemImpl of kind ITEM_TYPE_OTHER
  /// holding `caption` and `uuid`; every other field has its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  OtherItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is an OtherItemImpl (or of a class derived from
  /// it); otherwise, or when `other` has none, the copy silently has no store
  /// and every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  OtherItemInfo(OtherItemInfo const& other);
  /// Deletes the store, if any.
  ~OtherItemInfo() override;
  /// A new copy of this record of other content, made by the copy constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as an OtherItemImpl, for the accessors the facade lacks
  /// (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  OtherItemImpl* getImpl();
  /// The store as an OtherItemImpl, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  OtherItemImpl const* getImpl() const;
};

/// A record of kind ITEM_TYPE_INTERACTIVE.
class MA_COMMON_EXPORT InteractiveItemInfo : public ItemInfo {
 public:
  /// The interactive-service store: marks the kind, adds no fields.
  class MA_COMMON_EXPORT InteractiveItemImpl : public ItemImpl {
   public:
    /// A store of kind ITEM_TYPE_INTERACTIVE: caption and identifier as given,
    /// every other field at its initial value.
    /// @param caption the caption, stored untrimmed.
    /// @param uuid the identifier, stored untrimmed.
    /// @throws std::bad_alloc if a copy of `caption` or `uuid` cannot be
    /// allocated.
    InteractiveItemImpl(std::string const& caption, std::string const& uuid);
    /// Copies every field.
    /// @param other the store to copy.
    /// @throws std::bad_alloc if a string copy cannot be allocated.
    InteractiveItemImpl(InteractiveItemImpl const& other);
    /// Destroys the fields.
    ~InteractiveItemImpl() override;
  };

  /// An interactive-service record with a new interactive-service store of kind
  /// ITEM_TYPE_INTERACTIVE holding `caption` and `uuid`; every other field has
  /// its initial value.
  /// @param caption the caption, stored untrimmed (setCaption would trim).
  /// @param uuid the identifier, stored untrimmed; no setter changes it.
  /// @throws std::bad_alloc if the store cannot be allocated.
  InteractiveItemInfo(std::string const& caption, std::string const& uuid);
  /// Copies the store if it is an interactive-service store (or of a class
  /// derived from it); otherwise, or when `other` has none, the copy silently
  /// has no store and every accessor on it traces.
  /// @param other the record to copy.
  /// @throws std::bad_alloc if the store's copy cannot be allocated.
  InteractiveItemInfo(InteractiveItemInfo const& other);
  /// Deletes the store, if any.
  ~InteractiveItemInfo() override;
  /// A new copy of this interactive-service record, made by the copy
  /// constructor.
  /// @return the copy, allocated with new; the caller owns it.
  /// @throws std::bad_alloc if the copy or its store cannot be allocated.
  ItemInfo* duplicate() const override;
  /// The store as an interactive-service store, for the accessors the facade
  /// lacks (ItemImpl::setItemType).
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  InteractiveItemImpl* getImpl();
  /// The store as an interactive-service store, read-only.
  /// @return the store; null, after the trace line "getImpl(): impl is NULL",
  /// when the record has no store or one of another class.
  InteractiveItemImpl const* getImpl() const;
};

}  // namespace ma

#endif  // MA_MDC_ITEM_H_
