// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The fields of an item record, in declaration order: one row per field.
//
// This list is private to the library and its tests (it is not installed).
// The public header ma/mdc_item.h spells every accessor and member out; the
// implementation generates the accessor definitions from this list, and the
// declarations are held to it field by field: the store's constructor
// initialises the members in this order (a different order fails the build
// with -Wreorder) and checks their types, and item_signatures_test.cpp pins
// every declared accessor's signature from the rows below.
//
// MA_ITEM_FIELDS(X) expands X(kind, member, get, set, storeGet, storeSet,
// storeGetQualifier, setterStores, initial) once per field, where
//   kind               what the field is and how its accessors look:
//                        TYPE     the item type (facade getter by value, no
//                                 facade setter, store setter by value)
//                        SUBTYPE  a string whose facade reports a missing
//                                 store with its own message
//                        UUID     a string fixed at construction (getter only)
//                        STR      a string
//                        I32 U32  signed / unsigned 32-bit number
//                        I64 U64  signed / unsigned 64-bit number
//                        BOOL     a flag (getter is*, by value)
//                        WORD     a 32-bit word without accessors
//   get, set           the accessor names on ma::ItemInfo (none: absent)
//   storeGet, storeSet the accessor names on ma::ItemInfo::ItemImpl
//   storeGetQualifier  const, or empty where the store's getter is non-const
//   setterStores       STRIP: the setter stores the value trimmed of the
//                      blanks " \t\n\r" at both ends; RAW: stored as given
//   initial            the value after a kind constructor; `type`, `caption`
//                      and `uuid` name the store constructor's arguments
//
// Other orders over these fields (text dump, comparison, message layout) are
// written where they are used; this list is the declaration order.
#ifndef MA_INTERNAL_ITEM_FIELDS_H_
#define MA_INTERNAL_ITEM_FIELDS_H_

// clang-format off
#define MA_ITEM_FIELDS(X)                                                                                                                      \
  X(TYPE,    m_itemType,               getItemType,               none,                      getItemType,               setItemType,               const, RAW,   type) \
  X(SUBTYPE, m_itemSubType,            getItemSubType,            setItemSubType,            getItemSubType,            setItemSubType,            const, RAW,   ) \
  X(STR,     m_caption,                getCaption,                setCaption,                getCaption,                setCaption,                const, STRIP, caption) \
  X(UUID,    m_uuid,                   getUUID,                   none,                      getUUID,                   none,                      const, RAW,   uuid) \
  X(STR,     m_originalAncestor,       getOriginalAncestor,       setOriginalAncestor,       getOriginalAncestor,       setOriginalAncestor,       const, RAW,   ) \
  X(STR,     m_creator,                getCreator,                setCreator,                getCreator,                setCreator,                const, RAW,   ) \
  X(STR,     m_originalUuid,           getOriginalUuid,           setOriginalUuid,           getOriginalUuid,           setOriginalUuid,           const, RAW,   ) \
  X(STR,     m_originalVolume,         getOriginalVolume,         setOriginalVolume,         getOriginalVolume,         setOriginalVolume,         const, RAW,   ) \
  X(STR,     m_locator,                getItemLocator,            setItemLocator,            getLocator,                setLocator,                const, STRIP, ) \
  X(STR,     m_playtime,               getPlaytime,               setPlaytime,               getPlaytime,               setPlaytime,               const, STRIP, ) \
  X(STR,     m_thumbURL,               getThumbURL,               setThumbURL,               getThumbURL,               setThumbURL,               const, STRIP, ) \
  X(STR,     m_stationName,            getStationName,            setStationName,            getStationName,            setStationName,            const, RAW,   ) \
  X(STR,     m_stationDescription,     getStationDescription,     setStationDescription,     getStationDescription,     setStationDescription,     const, RAW,   ) \
  X(STR,     m_longStationDescription, getLongStationDescription, setLongStationDescription, getLongStationDescription, setLongStationDescription, const, RAW,   ) \
  X(STR,     m_title,                  getTitle,                  setTitle,                  getTitle,                  setTitle,                  const, STRIP, ) \
  X(STR,     m_genre,                  getGenre,                  setGenre,                  getGenre,                  setGenre,                  const, STRIP, ) \
  X(STR,     m_description,            getDescription,            setDescription,            getDescription,            setDescription,            const, STRIP, ) \
  X(STR,     m_comment,                getComment,                setComment,                getComment,                setComment,                const, STRIP, ) \
  X(STR,     m_date,                   getDate,                   setDate,                   getDate,                   setDate,                   const, STRIP, ) \
  X(STR,     m_userIndex,              getUserIndex,              setUserIndex,              getUserIndex,              setUserIndex,              const, RAW,   ) \
  X(STR,     m_parentalRating,         getParentalRating,         setParentalRating,         getParentalRating,         setParentalRating,         const, RAW,   ) \
  X(STR,     m_creationTime,           getCreationTime,           setCreationTime,           getCreationTime,           setCreationTime,           const, RAW,   ) \
  X(STR,     m_modificationTime,       getModificationTime,       setModificationTime,       getModificationTime,       setModificationTime,       const, RAW,   ) \
  X(STR,     m_encryptionScheme,       getEncryptionScheme,       setEncryptionScheme,       getEncryptionScheme,       setEncryptionScheme,       const, RAW,   ) \
  X(STR,     m_encryptionInfo,         getEncryptionInfo,         setEncryptionInfo,         getEncryptionInfo,         setEncryptionInfo,         const, RAW,   ) \
  X(STR,     m_displayRules,           getDisplayRules,           setDisplayRules,           getDisplayRules,           setDisplayRules,           const, RAW,   ) \
  X(I32,     m_previewPage,            getPreviewPage,            setPreviewPage,            getPreviewPage,            setPreviewPage,            const, RAW,   0) \
  X(I32,     m_subtitlePage,           getSubtitlePage,           setSubtitlePage,           getSubtitlePage,           setSubtitlePage,           const, RAW,   0) \
  X(I32,     m_encoding,               getEncoding,               setEncoding,               getEncoding,               setEncoding,               const, RAW,   0) \
  X(BOOL,    m_receivable,             isReceivable,              setReceivable,             isReceivable,              setReceivable,             const, RAW,   true) \
  X(U64,     m_fileSize,               getFileSize,               setFileSize,               getFileSize,               setFileSize,               const, RAW,   0) \
  X(I64,     m_dateNumeric,            getDateNumeric,            setDateNumeric,            getDateNumeric,            setDateNumeric,            const, RAW,   0) \
  X(I32,     m_attributes,             getAttributes,             setAttributes,             getAttributes,             setAttributes,             const, RAW,   0) \
  X(U32,     m_maxPosition,            getMaxPosition,            setMaxPosition,            getMaxPosition,            setMaxPosition,            const, RAW,   0) \
  X(U32,     m_resumePosition,         getResumePosition,         setResumePosition,         getResumePosition,         setResumePosition,         const, RAW,   0) \
  X(WORD,    m_reserved,               none,                      none,                      none,                      none,                      const, RAW,   0) \
  X(I32,     m_volumeCorrection,       getVolumeCorrection,       setVolumeCorrection,       getVolumeCorrection,       setVolumeCorrection,       const, RAW,   0) \
  X(BOOL,    m_visible,                isVisible,                 setVisible,                isVisible,                 setVisible,                const, RAW,   true) \
  X(BOOL,    m_selectable,             isSelectable,              setSelectable,             isSelectable,              setSelectable,             const, RAW,   true) \
  X(U32,     m_soundSelection,         getSoundSelection,         setSoundSelection,         getSoundSelection,         setSoundSelection,         const, RAW,   0) \
  X(STR,     m_tunerUUID,              getTunerUUID,              setTunerUUID,              getTunerUUID,              setTunerUUID,              const, RAW,   ) \
  X(U32,     m_lcn,                    getLcn,                    setLcn,                    getLcn,                    setLcn,                    const, RAW,   0) \
  X(I32,     m_epgTheme,               getEpgTheme,               setEpgTheme,               getEpgTheme,               setEpgTheme,               const, RAW,   0) \
  X(I32,     m_networkID,              getNetworkID,              setNetworkID,              getNetworkID,              setNetworkID,              const, RAW,   -1) \
  X(STR,     m_artist,                 getArtist,                 setArtist,                 getArtist,                 setArtist,                 const, RAW,   ) \
  X(STR,     m_album,                  getAlbum,                  setAlbum,                  getAlbum,                  setAlbum,                  const, RAW,   ) \
  X(STR,     m_albumUUID,              getAlbumUUID,              setAlbumUUID,              getAlbumUUID,              setAlbumUUID,              const, RAW,   ) \
  X(STR,     m_trackNum,               getTrackNum,               setTrackNum,               getTrackNum,               setTrackNum,               const, RAW,   ) \
  X(STR,     m_year,                   getYear,                   setYear,                   getYear,                   setYear,                   const, RAW,   ) \
  X(STR,     m_bitrate,                getBitrate,                setBitrate,                getBitrate,                setBitrate,                const, RAW,   ) \
  X(STR,     m_recStartTime,           getRecStartTime,           setRecStartTime,           getRecStartTime,           setRecStartTime,                , RAW,   ) \
  X(STR,     m_recEndTime,             getRecEndTime,             setRecEndTime,             getRecEndTime,             setRecEndTime,                  , RAW,   ) \
  X(STR,     m_recDuration,            getRecDuration,            setRecDuration,            getRecDuration,            setRecDuration,                 , RAW,   ) \
  X(STR,     m_recTsId,                getRecTsId,                setRecTsId,                getRecTsId,                setRecTsId,                     , RAW,   ) \
  X(STR,     m_recServiceId,           getRecServiceId,           setRecServiceId,           getRecServiceId,           setRecServiceId,                , RAW,   ) \
  X(STR,     m_recOnId,                getRecOnId,                setRecOnId,                getRecOnId,                setRecOnId,                     , RAW,   ) \
  X(STR,     m_recEventType,           getRecEventType,           setRecEventType,           getRecEventType,           setRecEventType,                , RAW,   ) \
  X(STR,     m_recFailType,            getRecFailType,            setRecFailType,            getRecFailType,            setRecFailType,                 , RAW,   ) \
  X(I32,     m_recChnum,               getRecChnum,               setRecChnum,               getRecChnum,               setRecChnum,                    , RAW,   0)
// clang-format on

// The C++ type of each kind of field.
#define MA_ITEM_FIELD_TYPE_TYPE ::ma::itemType
#define MA_ITEM_FIELD_TYPE_SUBTYPE ::std::string
#define MA_ITEM_FIELD_TYPE_UUID ::std::string
#define MA_ITEM_FIELD_TYPE_STR ::std::string
#define MA_ITEM_FIELD_TYPE_I32 int
#define MA_ITEM_FIELD_TYPE_U32 unsigned int
#define MA_ITEM_FIELD_TYPE_I64 long long
#define MA_ITEM_FIELD_TYPE_U64 unsigned long long
#define MA_ITEM_FIELD_TYPE_BOOL bool
#define MA_ITEM_FIELD_TYPE_WORD unsigned int

#endif  // MA_INTERNAL_ITEM_FIELDS_H_
