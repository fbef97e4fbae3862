// Sorted iteration of a fixed folder against the floor of sorting the
// pre-extracted keys (caption strings or dates) of the same children.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"

namespace {

// A folder of `count` leaves with random 12-letter captions and dates.
boost::shared_ptr<ma::VfsFixedFolder> randomFolder(int count) {
  std::mt19937 random(42);
  std::uniform_int_distribution<int> letter('a', 'z');
  std::uniform_int_distribution<long long> date(0, 4000000000LL);
  boost::shared_ptr<ma::VfsFixedFolder> folder(
      new ma::VfsFixedFolder(boost::shared_ptr<ma::ItemInfo>(new ma::FolderItemInfo("root", "r"))));
  for (int i = 0; i < count; ++i) {
    std::string caption(12, ' ');
    for (char& c : caption) c = static_cast<char>(letter(random));
    boost::shared_ptr<ma::ItemInfo> item(new ma::VideoItemInfo(caption, std::to_string(i)));
    item->setDateNumeric(date(random));
    folder->addEntry(boost::shared_ptr<ma::VfsEntry>(
        new ma::VfsFixedEntry(item, boost::shared_ptr<ma::VfsUserData>())));
  }
  return folder;
}

void BM_SortedIteratorByCaption(benchmark::State& state) {
  const auto folder = randomFolder(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(folder->getSortedIterator("+dc:title"));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_SortedIteratorByCaption)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void BM_SortedIteratorByDate(benchmark::State& state) {
  const auto folder = randomFolder(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(folder->getSortedIterator(""));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_SortedIteratorByDate)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// The floor: the captions already extracted, copied and sorted.
void BM_SortPreExtractedCaptions(benchmark::State& state) {
  const auto folder = randomFolder(static_cast<int>(state.range(0)));
  std::vector<std::string> captions;
  const auto iterator = folder->getIterator();
  for (auto child = iterator->getCurrentChild(); child; iterator->advance(), child = iterator->getCurrentChild()) {
    captions.push_back(child->getItemInfo()->getCaption());
  }
  for (auto _ : state) {
    std::vector<std::string> copy = captions;
    std::sort(copy.begin(), copy.end());
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_SortPreExtractedCaptions)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// The floor for dates.
void BM_SortPreExtractedDates(benchmark::State& state) {
  const auto folder = randomFolder(static_cast<int>(state.range(0)));
  std::vector<long long> dates;
  const auto iterator = folder->getIterator();
  for (auto child = iterator->getCurrentChild(); child; iterator->advance(), child = iterator->getCurrentChild()) {
    dates.push_back(child->getItemInfo()->getDateNumeric());
  }
  for (auto _ : state) {
    std::vector<long long> copy = dates;
    std::sort(copy.begin(), copy.end(), [](long long a, long long b) { return b < a; });
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_SortPreExtractedDates)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace
