// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Directory scan: one opendir per directory, one stat per entry, children
// sorted by name, symlink loops and unreadable entries left out.
#include "directory_scan.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <set>
#include <utility>
#include <vector>

#include "errors.h"
#include "item_kinds.h"
#include "ma/mdc_selection_uris.h"

namespace ma_cli {

namespace {

typedef boost::shared_ptr<ma::VfsFixedFolder> FolderPtr;

// Progress is reported once per this many entries.
constexpr std::size_t kProgressStep = 4096;

struct DirectoryEntry {
  std::string name;
  struct stat status;
};

class Scanner {
 public:
  Scanner(ScanOptions const& options, std::vector<SkippedEntry>* skipped)
      : options_(options), skipped_(skipped), euid_(::geteuid()), egid_(::getegid()) {
    int const count = ::getgroups(0, nullptr);
    if (count > 0) {
      groups_.resize(static_cast<std::size_t>(count));
      groups_.resize(static_cast<std::size_t>(std::max(0, ::getgroups(count, groups_.data()))));
    }
  }

  ~Scanner() {
    if (options_.showProgress) std::fputs("\r\033[K", stderr);
  }

  // The folder of directory `path` (absolute), whose own status is
  // `status`, with everything below it down to `depth` levels.
  FolderPtr folder(std::string const& path, std::string const& caption, struct stat const& status,
                   int depth) {
    visited_.insert(std::make_pair(status.st_dev, status.st_ino));
    FolderPtr folder(new ma::VfsFixedFolder(makeItem(ma::ITEM_TYPE_FOLDER, caption, uuidOf(status))));
    describe(*folder->getItemInfo(), path, status);
    if (options_.maxDepth >= 0 && depth >= options_.maxDepth) return folder;

    std::vector<DirectoryEntry> entries;
    if (!entriesOf(path, &entries) && depth > 0) return FolderPtr();  // reported, left out
    for (DirectoryEntry const& entry : entries) {
      std::string const childPath = path == "/" ? "/" + entry.name : path + "/" + entry.name;
      bool const directory = S_ISDIR(entry.status.st_mode);
      if (!mayRead(entry.status, directory)) {
        skip(childPath, "not readable");
      } else if (!directory) {
        boost::shared_ptr<ma::ItemInfo> item =
            makeItem(kindOfFileName(entry.name), entry.name, uuidOf(entry.status));
        describe(*item, childPath, entry.status);
        folder->addEntry(boost::shared_ptr<ma::VfsEntry>(
            new ma::VfsFixedEntry(item, boost::shared_ptr<ma::VfsUserData>())));
      } else if (visited_.count(std::make_pair(entry.status.st_dev, entry.status.st_ino)) != 0) {
        skip(childPath, "symlink loop: directory already scanned");
      } else {
        FolderPtr child = this->folder(childPath, entry.name, entry.status, depth + 1);
        if (child) folder->addEntry(child);
      }
      countOne();
    }
    return folder;
  }

 private:
  // The entries of directory `path`, sorted by name, each with the status
  // of what it names (links followed). Entries without status are skipped.
  // False, with the reason reported, when the directory cannot be opened.
  bool entriesOf(std::string const& path, std::vector<DirectoryEntry>* found) {
    std::vector<DirectoryEntry>& entries = *found;
    DIR* directory = ::opendir(path.c_str());
    if (directory == nullptr) {
      skip(path, std::strerror(errno));
      return false;
    }
    int const fd = ::dirfd(directory);
    errno = 0;
    while (dirent* listed = ::readdir(directory)) {
      char const* name = listed->d_name;
      if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) continue;
      DirectoryEntry entry;
      entry.name = name;
      if (::fstatat(fd, name, &entry.status, 0) != 0) {
        skip(path + "/" + entry.name, errno == ENOENT ? "dangling symbolic link" : std::strerror(errno));
        continue;
      }
      entries.push_back(std::move(entry));
      errno = 0;
    }
    if (errno != 0) skip(path, std::string("listing stopped: ") + std::strerror(errno));
    ::closedir(directory);
    // Sorted through pointers: an entry with its status is large to move.
    std::vector<DirectoryEntry*> order;
    order.reserve(entries.size());
    for (DirectoryEntry& entry : entries) order.push_back(&entry);
    std::sort(order.begin(), order.end(),
              [](DirectoryEntry const* a, DirectoryEntry const* b) { return a->name < b->name; });
    std::vector<DirectoryEntry> sorted;
    sorted.reserve(entries.size());
    for (DirectoryEntry* entry : order) sorted.push_back(std::move(*entry));
    entries.swap(sorted);
    return true;
  }

  // Whether the permission bits let this process read the entry (and,
  // for a directory, search it). The superuser reads everything; access
  // control lists are not consulted (that would cost a system call per
  // entry).
  bool mayRead(struct stat const& status, bool directory) const {
    if (euid_ == 0) return true;
    unsigned int bits;
    if (status.st_uid == euid_) {
      bits = (status.st_mode >> 6) & 7u;
    } else if (status.st_gid == egid_ ||
               std::find(groups_.begin(), groups_.end(), status.st_gid) != groups_.end()) {
      bits = (status.st_mode >> 3) & 7u;
    } else {
      bits = status.st_mode & 7u;
    }
    return (bits & 4u) != 0 && (!directory || (bits & 1u) != 0);
  }

  static std::string uuidOf(struct stat const& status) {
    char text[64];
    std::snprintf(text, sizeof text, "UUID-%llx-%llx",
                  static_cast<unsigned long long>(status.st_dev),
                  static_cast<unsigned long long>(status.st_ino));
    return text;
  }

  // Locator, size and dates of the record of the file at `path`.
  static void describe(ma::ItemInfo& item, std::string const& path, struct stat const& status) {
    ma::SelectionStrings parts;
    parts.sourceType = "file";
    parts.path = path.substr(1);  // "file://" + "" + "/" + path without its "/"
    std::string locator;
    mdcSelectionCreate(locator, parts);
    item.setItemLocator(locator);
    item.setFileSize(static_cast<unsigned long long>(status.st_size));
    item.setDateNumeric(static_cast<long long>(status.st_mtime));
    std::tm utc;
    std::time_t const time = status.st_mtime;
    char date[32];
    if (::gmtime_r(&time, &utc) != nullptr && std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &utc) != 0) {
      item.setDate(date);
    }
  }

  void skip(std::string const& path, std::string const& reason) {
    skipped_->push_back({path, reason});
  }

  void countOne() {
    ++count_;
    if (options_.showProgress && count_ % kProgressStep == 0) {
      std::fprintf(stderr, "\rma-cli: scanning, %zu entries", count_);
    }
  }

  ScanOptions const options_;
  std::vector<SkippedEntry>* const skipped_;
  uid_t const euid_;
  gid_t const egid_;
  std::vector<gid_t> groups_;
  std::set<std::pair<dev_t, ino_t> > visited_;  // directories scanned so far
  std::size_t count_ = 0;
};

// `path` as an absolute path without trailing "/" (but "/" itself).
std::string absolutePath(std::string path) {
  if (path.empty() || path[0] != '/') {
    std::vector<char> cwd(4096);
    while (::getcwd(cwd.data(), cwd.size()) == nullptr) {
      if (errno != ERANGE) throw InputError(std::string("cannot tell the current directory: ") + std::strerror(errno));
      cwd.resize(cwd.size() * 2);
    }
    std::string base = cwd.data();
    path = path.empty() || path == "." ? base : (base == "/" ? "" : base) + "/" + path;
  }
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

}  // namespace

Catalogue scanDirectory(std::string const& path, ScanOptions const& options) {
  std::string const root = absolutePath(path);
  struct stat status;
  if (::stat(root.c_str(), &status) != 0) {
    throw InputError("directory \"" + path + "\": " + std::strerror(errno));
  }
  if (!S_ISDIR(status.st_mode)) throw InputError("\"" + path + "\" is not a directory");
  DIR* probe = ::opendir(root.c_str());
  if (probe == nullptr) {
    throw InputError("directory \"" + path + "\" cannot be read: " + std::strerror(errno));
  }
  ::closedir(probe);

  Catalogue catalogue;
  Scanner scanner(options, &catalogue.skipped);
  std::size_t const slash = root.rfind('/');
  std::string const caption = root == "/" ? "/" : root.substr(slash + 1);
  catalogue.root = scanner.folder(root, caption, status, 0);
  return catalogue;
}

}  // namespace ma_cli
