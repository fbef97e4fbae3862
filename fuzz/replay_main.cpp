// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Runs a fuzz target over files: each argument is a file or a folder of
// files, and each file is one input. Used where libFuzzer is not.
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int replayFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "replay: cannot read %s\n", path.c_str());
    return 1;
  }
  const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return 0;
}

int replay(const std::string& path, int& count) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0) {
    std::fprintf(stderr, "replay: no such file %s\n", path.c_str());
    return 1;
  }
  if (!S_ISDIR(info.st_mode)) {
    ++count;
    return replayFile(path);
  }
  DIR* dir = opendir(path.c_str());
  if (dir == nullptr) return 1;
  int failures = 0;
  while (const dirent* entry = readdir(dir)) {
    const std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    failures += replay(path + "/" + name, count);
  }
  closedir(dir);
  return failures;
}

}  // namespace

int main(int argc, char** argv) {
  int failures = 0;
  int count = 0;
  for (int i = 1; i < argc; ++i) failures += replay(argv[i], count);
  std::printf("replay: %d inputs\n", count);
  return failures == 0 && count > 0 ? 0 : 1;
}
