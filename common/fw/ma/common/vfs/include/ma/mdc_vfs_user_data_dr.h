// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// VfsUserDataDR: the recorder's data on an entry that stands for a recording.
/// Declared in the global namespace (not in `ma`).
///
/// It tells whether the recording is still in progress, the bounds of the
/// recorded stream and of the circular buffer (in the recorder's units, stored
/// and returned unchanged), the kind of encryption (0: none) and the 16-byte
/// content key. Entries carry it as a boost::shared_ptr<ma::VfsUserData>;
/// callers that know the kind convert it back
/// (boost::dynamic_pointer_cast<VfsUserDataDR>). Nothing here throws.
///
/// Thread-safety: every accessor holds the object's own mutex around its one
/// field access, so a 64-bit bound is always read and written whole, also on a
/// 32-bit processor. The encryption kind and the key never change after
/// construction.
#ifndef MA_MDC_VFS_USER_DATA_DR_H_
#define MA_MDC_VFS_USER_DATA_DR_H_

#include <pthread.h>

#include "ma/export.h"
#include "ma/mdc_vfs_base.h"

/// The recorder's data on an entry that stands for a recording (see the file
/// description). Every accessor locks the object's own mutex.
class MA_COMMON_EXPORT VfsUserDataDR : public ma::VfsUserData {
 public:
  /// Stores the values as given (nothing is checked or converted). Throws
  /// nothing.
  /// @param isRecording whether the recording is still in progress
  /// @param streamBegin the start of the recorded stream
  /// @param streamEnd the end of the recorded stream
  /// @param circularBegin the start of the circular buffer
  /// @param circularEnd the end of the circular buffer
  /// @param encryption the kind of encryption, 0 for none; fixed for the
  ///        object's life
  /// @param key the 16-byte content key: copied only when `encryption` is
  ///        non-zero and `key` is not null; otherwise not read, and the key
  ///        bytes stay unwritten (indeterminate)
  VfsUserDataDR(bool isRecording, long long streamBegin, long long streamEnd,
                long long circularBegin, long long circularEnd, int encryption, unsigned char* key);
  /// Not copyable: copying a pthread mutex is undefined.
  VfsUserDataDR(VfsUserDataDR const&) = delete;
  /// Not assignable, for the same reason.
  VfsUserDataDR& operator=(VfsUserDataDR const&) = delete;
  /// Destroys the mutex; the key bytes are not cleared.
  ~VfsUserDataDR() override;

  /// Whether the recording is still in progress (the recorder is still
  /// writing it).
  /// @return the flag as last set, at first the constructor's `isRecording`
  virtual bool getIsRecording();
  /// Marks the recording as in progress or finished.
  /// @param isRecording true while the recorder is still writing it
  virtual void setIsRecording(bool isRecording);

  /// @name Stream and circular buffer bounds
  /// In the recorder's units, stored and answered unchanged (no check that
  /// a beginning lies before its end).
  //@{
  /// The start of the recorded stream.
  /// @return the value as last set, at first the constructor's
  ///         `streamBegin`
  virtual long long getStreamBegin();
  /// Moves the start of the recorded stream.
  /// @param streamBegin the new start, stored as given
  virtual void setStreamBegin(long long streamBegin);
  /// The end of the recorded stream.
  /// @return the value as last set, at first the constructor's `streamEnd`
  virtual long long getStreamEnd();
  /// Moves the end of the recorded stream.
  /// @param streamEnd the new end, stored as given
  virtual void setStreamEnd(long long streamEnd);
  /// The start of the circular buffer.
  /// @return the value as last set, at first the constructor's
  ///         `circularBegin`
  virtual long long getCircularBegin();
  /// Moves the start of the circular buffer.
  /// @param circularBegin the new start, stored as given
  virtual void setCircularBegin(long long circularBegin);
  /// The end of the circular buffer.
  /// @return the value as last set, at first the constructor's
  ///         `circularEnd`
  virtual long long getCircularEnd();
  /// Moves the end of the circular buffer.
  /// @param circularEnd the new end, stored as given
  virtual void setCircularEnd(long long circularEnd);
  //@}

  /// The kind of encryption; there is no setter.
  /// @return the constructor's `encryption`: 0 for none, other kinds as the
  ///         recorder defines them
  virtual int getEncryption();

  /// The content key.
  /// @return the object's own kKeySize key bytes, valid while the object
  ///         lives and never changed; meaningful only when getEncryption()
  ///         is non-zero
  unsigned char* getKey();

  /// The number of key bytes.
  static const int kKeySize = 16;

 private:
  bool m_isRecording;
  long long m_streamBegin;
  long long m_streamEnd;
  long long m_circularBegin;
  long long m_circularEnd;
  int m_encryption;               ///< 0: unencrypted
  unsigned char m_key[kKeySize];  ///< written only when encrypted
  pthread_mutex_t m_mutex;        ///< default kind; guards every field above
};

#endif  // MA_MDC_VFS_USER_DATA_DR_H_
