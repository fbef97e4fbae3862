// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// VfsUserDataDR: the recorder's data on an entry that stands for a recording.
///
/// It tells whether the recording is still in progress, the bounds of the
/// recorded stream and of the circular buffer (in the recorder's units, stored
/// and returned unchanged), the kind of encryption (0: none) and the 16-byte
/// content key. Entries carry it as a boost::shared_ptr<ma::VfsUserData>;
/// callers that know the kind convert it back.
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
  /// Stores the values. The 16 bytes at `key` are copied only when
  /// `encryption` is non-zero and `key` is not null; otherwise `key` is not
  /// read and the key bytes stay unwritten (indeterminate).
  VfsUserDataDR(bool isRecording, long long streamBegin, long long streamEnd,
                long long circularBegin, long long circularEnd, int encryption, unsigned char* key);
  /// Not copyable: copying a pthread mutex is undefined.
  VfsUserDataDR(VfsUserDataDR const&) = delete;
  VfsUserDataDR& operator=(VfsUserDataDR const&) = delete;
  ~VfsUserDataDR() override;

  /// Whether the recording is still in progress.
  virtual bool getIsRecording();
  /// Sets whether the recording is still in progress.
  virtual void setIsRecording(bool isRecording);

  /// @name Stream and circular buffer bounds
  //@{
  /// The bounds of the recorded stream and of the circular buffer, in the
  /// recorder's units, stored and answered unchanged.
  virtual long long getStreamBegin();
  virtual void setStreamBegin(long long streamBegin);
  virtual long long getStreamEnd();
  virtual void setStreamEnd(long long streamEnd);
  virtual long long getCircularBegin();
  virtual void setCircularBegin(long long circularBegin);
  virtual long long getCircularEnd();
  virtual void setCircularEnd(long long circularEnd);
  //@}

  /// The kind of encryption, 0 for none; fixed at construction.
  virtual int getEncryption();

  /// The object's own 16 key bytes, valid while the object lives. Meaningful
  /// only when getEncryption() is non-zero.
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
