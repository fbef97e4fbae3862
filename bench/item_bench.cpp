// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The item record's everyday operations: construction, copy, trimmed set,
// comparison and text dump.
#include <benchmark/benchmark.h>

#include <memory>

#include "ma/mdc_item.h"

namespace {

ma::VideoItemInfo describedVideo() {
  ma::VideoItemInfo video("Tagesschau", "uuid-0001");
  video.setTitle("Tagesschau 20:00");
  video.setItemLocator("/media/hdd/rec/0001.ts");
  video.setStationName("Das Erste HD");
  video.setDescription("News of the day with weather.");
  video.setDateNumeric(1795000000LL);
  video.setFileSize(1234567890ULL);
  video.setStartTime("20:00");
  video.setEndTime("20:15");
  return video;
}

void BM_ConstructFolder(benchmark::State& state) {
  for (auto _ : state) {
    ma::FolderItemInfo folder("Music", "uuid-folder");
    benchmark::DoNotOptimize(folder.getImpl());
  }
}
BENCHMARK(BM_ConstructFolder);

void BM_DuplicateVideo(benchmark::State& state) {
  const ma::VideoItemInfo video = describedVideo();
  for (auto _ : state) {
    std::unique_ptr<ma::ItemInfo> copy(video.duplicate());
    benchmark::DoNotOptimize(copy.get());
  }
}
BENCHMARK(BM_DuplicateVideo);

void BM_SetTrimmedCaption(benchmark::State& state) {
  ma::MusicItemInfo music("", "");
  const std::string padded = "  \tA title with blanks around\r\n";
  for (auto _ : state) {
    music.setCaption(padded);
    benchmark::DoNotOptimize(music.getCaption().data());
  }
}
BENCHMARK(BM_SetTrimmedCaption);

void BM_CompareEqualVideos(benchmark::State& state) {
  ma::VideoItemInfo a = describedVideo();
  const ma::VideoItemInfo b = describedVideo();
  for (auto _ : state) benchmark::DoNotOptimize(a == b);
}
BENCHMARK(BM_CompareEqualVideos);

void BM_DumpVideo(benchmark::State& state) {
  const ma::VideoItemInfo video = describedVideo();
  for (auto _ : state) benchmark::DoNotOptimize(video.toString());
}
BENCHMARK(BM_DumpVideo);

}  // namespace
