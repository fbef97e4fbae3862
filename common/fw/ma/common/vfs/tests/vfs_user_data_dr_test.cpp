// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The recorder's user data: stored values, the key rule, the accessors.
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <climits>
#include <cstring>
#include <new>

#include "ma/mdc_vfs_user_data_dr.h"

namespace {

unsigned char kKey[VfsUserDataDR::kKeySize + 1] = {0x00, 0x11, 0x22, 0x33, 0x44, 0x55,
                                                   0x66, 0x77, 0x88, 0x99, 0xaa, 0xbb,
                                                   0xcc, 0xdd, 0xee, 0xff, 0x5a};

const unsigned char kFill = 0xa5;

// Builds a VfsUserDataDR in storage filled with kFill beforehand, so that a
// test can tell whether the constructor wrote the key bytes.
class PrefilledUserData {
 public:
  PrefilledUserData(int encryption, unsigned char* key) {
    std::memset(m_storage, kFill, sizeof m_storage);
    m_data = new (m_storage) VfsUserDataDR(false, 0, 0, 0, 0, encryption, key);
  }
  ~PrefilledUserData() { m_data->~VfsUserDataDR(); }

  VfsUserDataDR* operator->() { return m_data; }

 private:
  alignas(VfsUserDataDR) unsigned char m_storage[sizeof(VfsUserDataDR)];
  VfsUserDataDR* m_data;
};

bool allFill(unsigned char const* bytes) {
  for (int i = 0; i < VfsUserDataDR::kKeySize; ++i) {
    if (bytes[i] != kFill) return false;
  }
  return true;
}

TEST(VfsUserDataDRTest, StoresTheConstructorValues) {
  VfsUserDataDR data(true, 1, 2, 3, 4, 0, nullptr);
  EXPECT_TRUE(data.getIsRecording());
  EXPECT_EQ(1, data.getStreamBegin());
  EXPECT_EQ(2, data.getStreamEnd());
  EXPECT_EQ(3, data.getCircularBegin());
  EXPECT_EQ(4, data.getCircularEnd());
  EXPECT_EQ(0, data.getEncryption());
}

TEST(VfsUserDataDRTest, SettersChangeOnlyTheirField) {
  VfsUserDataDR data(true, 1, 2, 3, 4, 9, kKey);
  data.setIsRecording(false);
  EXPECT_FALSE(data.getIsRecording());
  data.setStreamBegin(10);
  data.setStreamEnd(20);
  data.setCircularBegin(30);
  data.setCircularEnd(40);
  EXPECT_EQ(10, data.getStreamBegin());
  EXPECT_EQ(20, data.getStreamEnd());
  EXPECT_EQ(30, data.getCircularBegin());
  EXPECT_EQ(40, data.getCircularEnd());
  EXPECT_EQ(9, data.getEncryption());
  EXPECT_EQ(0, std::memcmp(kKey, data.getKey(), VfsUserDataDR::kKeySize));
}

TEST(VfsUserDataDRTest, UnencryptedWithKeyDoesNotCopyTheKey) {
  PrefilledUserData data(0, kKey);
  EXPECT_EQ(0, data->getEncryption());
  EXPECT_TRUE(allFill(data->getKey()));
}

TEST(VfsUserDataDRTest, EncryptedWithNullKeyCopiesNothingAndDoesNotCrash) {
  PrefilledUserData data(1, nullptr);
  EXPECT_EQ(1, data->getEncryption());
  EXPECT_TRUE(allFill(data->getKey()));
}

TEST(VfsUserDataDRTest, EncryptedWithKeyKeepsACopyOfTheFirstSixteenBytes) {
  unsigned char key[VfsUserDataDR::kKeySize + 1];
  std::memcpy(key, kKey, sizeof key);
  PrefilledUserData data(2, key);
  EXPECT_EQ(2, data->getEncryption());
  unsigned char* copy = data->getKey();
  EXPECT_NE(key, copy);
  EXPECT_EQ(0, std::memcmp(kKey, copy, VfsUserDataDR::kKeySize));
  std::memset(key, 0, sizeof key);  // the caller's buffer changes afterwards
  EXPECT_EQ(0, std::memcmp(kKey, copy, VfsUserDataDR::kKeySize));
}

TEST(VfsUserDataDRTest, NegativeEncryptionCountsAsEncrypted) {
  PrefilledUserData data(-1, kKey);
  EXPECT_EQ(0, std::memcmp(kKey, data->getKey(), VfsUserDataDR::kKeySize));
}

TEST(VfsUserDataDRTest, GetKeyPointsIntoTheObjectEveryTime) {
  VfsUserDataDR data(false, 0, 0, 0, 0, 1, kKey);
  EXPECT_EQ(data.getKey(), data.getKey());
  unsigned char* key = data.getKey();
  EXPECT_GE(key, reinterpret_cast<unsigned char*>(&data));
  EXPECT_LT(key, reinterpret_cast<unsigned char*>(&data) + sizeof data);
}

TEST(VfsUserDataDRTest, BoundsNearTheSixtyFourBitLimitsComeBackExactly) {
  VfsUserDataDR data(false, -1, LLONG_MAX, LLONG_MIN, 0x100000001LL, 0, nullptr);
  EXPECT_EQ(-1, data.getStreamBegin());
  EXPECT_EQ(LLONG_MAX, data.getStreamEnd());
  EXPECT_EQ(LLONG_MIN, data.getCircularBegin());
  EXPECT_EQ(0x100000001LL, data.getCircularEnd());
  data.setStreamBegin(LLONG_MIN);
  data.setStreamEnd(-1);
  data.setCircularBegin(LLONG_MAX);
  data.setCircularEnd(-0x100000001LL);
  EXPECT_EQ(LLONG_MIN, data.getStreamBegin());
  EXPECT_EQ(-1, data.getStreamEnd());
  EXPECT_EQ(LLONG_MAX, data.getCircularBegin());
  EXPECT_EQ(-0x100000001LL, data.getCircularEnd());
}

TEST(VfsUserDataDRTest, TravelsAsPlainUserDataAndConvertsBack) {
  boost::shared_ptr<ma::VfsUserData> plain(new VfsUserDataDR(true, 5, 6, 7, 8, 0, nullptr));
  boost::shared_ptr<VfsUserDataDR> recorder = boost::dynamic_pointer_cast<VfsUserDataDR>(plain);
  ASSERT_TRUE(recorder);
  EXPECT_EQ(6, recorder->getStreamEnd());
  EXPECT_EQ(plain.get(), recorder->shared_from_this().get());
}

}  // namespace
