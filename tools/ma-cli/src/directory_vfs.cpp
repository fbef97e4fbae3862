// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The directory VFS: folders that list their directory on demand, an
// iterator that answers from the storage worker, descriptors kept in a small
// cache.
#include "directory_vfs.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <list>
#include <memory>
#include <utility>

#include "errors.h"
#include "item_kinds.h"
#include "ma/mdc_selection_uris.h"
#include "ma/mdc_vfs_fixed.h"
#include "storage_worker.h"
#include "text_output.h"

namespace ma_cli {

namespace {

typedef std::vector<boost::shared_ptr<ma::VfsEntry> > Children;

// Progress is reported once per this many entries.
constexpr std::size_t kProgressStep = 4096;

// Directory descriptors kept open besides the root's.
constexpr std::size_t kOpenDirectories = 64;

// Entries skipped by every scan of this run.
std::atomic<std::size_t> gSkippedThisRun{0};

// The environment variable of the test hook that removes the entry it names
// between the listing of its directory and the entry's stat.
constexpr char kRemoveBeforeStat[] = "MA_CLI_TEST_REMOVE_BEFORE_STAT";

struct Scan;

// One directory of the tree: where it is (its name in its parent) and what
// it was when listed (device and inode). Its descriptor, when open, belongs
// to the scan's cache.
struct DirectoryNode {
  DirectoryNode(std::shared_ptr<Scan> owner, std::shared_ptr<DirectoryNode> above, std::string nameInParent,
                struct stat const& status, bool onOtherDevice);
  DirectoryNode(DirectoryNode const&) = delete;
  DirectoryNode& operator=(DirectoryNode const&) = delete;
  ~DirectoryNode();

  std::shared_ptr<Scan> const scan;
  std::shared_ptr<DirectoryNode> parent;  // null for the root; taken out only by ~DirectoryNode
  bool const isRoot;
  std::string const name;                       // the root: its canonical absolute path
  dev_t const device;
  ino_t const inode;
  bool const sealed;  // on another device under --one-file-system: never listed

  // Guarded by the cache's mutex.
  int fd = -1;
  std::list<DirectoryNode*>::iterator cached;
};

// The absolute path of `node`, from its chain of names.
std::string pathOf(DirectoryNode const& node) {
  std::vector<DirectoryNode const*> chain;
  std::size_t size = 0;
  for (DirectoryNode const* at = &node; at != nullptr; at = at->parent.get()) {
    chain.push_back(at);
    size += at->name.size() + 1;
  }
  std::string path;
  path.reserve(size);
  for (auto at = chain.rbegin(); at != chain.rend(); ++at) {
    if (at != chain.rbegin() && path != "/") path += '/';
    path += (*at)->name;
  }
  return path;
}

// The descriptors of the directories read lately, the least recently used
// closed first. The root's stays open for the whole scan.
class DescriptorCache {
 public:
  explicit DescriptorCache(bool follow) : follow_(follow) {}

  // A new descriptor (the caller's to close) of a fresh open of directory
  // `node`, opened step by step from its nearest open ancestor; -1 with the
  // reason in `*error`.
  int openFresh(DirectoryNode& node, std::string* error) {
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<DirectoryNode*> chain;
    DirectoryNode* open = &node;
    while (open->fd < 0) {
      chain.push_back(open);
      open = open->parent.get();  // the root is always open
    }
    for (auto step = chain.rbegin(); step != chain.rend(); ++step) {
      DirectoryNode& next = **step;
      int const flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (follow_ ? 0 : O_NOFOLLOW);
      int const fd = ::openat(open->fd, next.name.c_str(), flags);
      if (fd < 0) {
        *error = std::strerror(errno);
        return -1;
      }
      struct stat status;
      if (::fstat(fd, &status) != 0 || status.st_dev != next.device || status.st_ino != next.inode) {
        ::close(fd);
        *error = "replaced while it was read";
        return -1;
      }
      next.fd = fd;
      recent_.push_front(&next);
      next.cached = recent_.begin();
      open = &next;
    }
    int const fresh = ::openat(node.fd, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fresh < 0) *error = std::strerror(errno);
    if (!node.isRoot && node.cached != recent_.begin()) {  // the node is the most recent now
      recent_.splice(recent_.begin(), recent_, node.cached);
    }
    while (recent_.size() > kOpenDirectories) {
      DirectoryNode* oldest = recent_.back();
      recent_.pop_back();
      ::close(oldest->fd);
      oldest->fd = -1;
    }
    return fresh;
  }

  // Takes the root's descriptor, kept open until the root node goes.
  void pinRoot(DirectoryNode& root, int fd) {
    std::lock_guard<std::mutex> lock(mutex_);
    root.fd = fd;
  }

  // Closes the descriptor of `node`, which is going.
  void forget(DirectoryNode& node) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (node.fd < 0) return;
    ::close(node.fd);
    if (!node.isRoot) recent_.erase(node.cached);
    node.fd = -1;
  }

 private:
  bool const follow_;
  std::mutex mutex_;
  std::list<DirectoryNode*> recent_;  // most recent first; never the root
};

// What every entry of one tree shares.
struct Scan {
  Scan(ScanSettings const& chosen, boost::shared_ptr<ScanReport> const& reportTo)
      : settings(chosen), report(reportTo), cache(chosen.follow), euid(::geteuid()), egid(::getegid()) {
    int const count = ::getgroups(0, nullptr);
    if (count > 0) {
      groups.resize(static_cast<std::size_t>(count));
      groups.resize(static_cast<std::size_t>(std::max(0, ::getgroups(count, groups.data()))));
    }
    if (char const* name = std::getenv(kRemoveBeforeStat)) removeBeforeStat = name;
  }

  // Whether the permission bits let this process read the entry (and,
  // for a directory, search it). The superuser reads everything; access
  // control lists are not consulted (that would cost a system call per
  // entry).
  bool mayRead(struct stat const& status, bool directory) const {
    if (euid == 0) return true;
    unsigned int bits;
    if (status.st_uid == euid) {
      bits = (status.st_mode >> 6) & 7u;
    } else if (status.st_gid == egid || std::find(groups.begin(), groups.end(), status.st_gid) != groups.end()) {
      bits = (status.st_mode >> 3) & 7u;
    } else {
      bits = status.st_mode & 7u;
    }
    return (bits & 4u) != 0 && (!directory || (bits & 1u) != 0);
  }

  ScanSettings const settings;
  boost::shared_ptr<ScanReport> const report;
  DescriptorCache cache;
  dev_t rootDevice = 0;
  uid_t const euid;
  gid_t const egid;
  std::vector<gid_t> groups;
  std::string removeBeforeStat;  // test hook; empty: off
};

DirectoryNode::DirectoryNode(std::shared_ptr<Scan> owner, std::shared_ptr<DirectoryNode> above,
                             std::string nameInParent, struct stat const& status, bool onOtherDevice)
    : scan(std::move(owner)),
      parent(std::move(above)),
      isRoot(parent == nullptr),
      name(std::move(nameInParent)),
      device(status.st_dev),
      inode(status.st_ino),
      sealed(onOtherDevice) {}

// Letting go of a node lets go of its parent: a chain thousands of levels
// deep would be destroyed recursively, a few frames per level, and overflow a
// small stack (on whichever thread drops the last reference). The chain above
// is released here level by level instead: each step takes the parent out of
// a node this destructor holds the only reference to, so that node's own
// destructor has nothing left to release. Nobody can take a new reference to
// a node whose count is 1 (there are no weak references to nodes).
DirectoryNode::~DirectoryNode() {
  scan->cache.forget(*this);
  std::shared_ptr<DirectoryNode> above = std::move(parent);
  while (above && above.use_count() == 1) {
    std::shared_ptr<DirectoryNode> next = std::move(above->parent);
    above = std::move(next);  // the old `above` goes here, its parent already taken
  }
}

std::string uuidOf(struct stat const& status) {
  char text[64];
  std::snprintf(text, sizeof text, "UUID-%llx-%llx", static_cast<unsigned long long>(status.st_dev),
                static_cast<unsigned long long>(status.st_ino));
  return text;
}

// The record of the file at `path` (absolute), of kind `kind` and caption
// `caption`: its identifier from `status`, its locator, size and dates.
boost::shared_ptr<ma::ItemInfo> recordOf(ma::itemType kind, std::string const& caption, std::string const& path,
                                         struct stat const& status) {
  boost::shared_ptr<ma::ItemInfo> record = makeItem(kind, caption, uuidOf(status));
  ma::SelectionStrings parts;
  parts.sourceType = "file";
  parts.path = path.substr(1);  // "file://" + "" + "/" + path without its "/"
  std::string locator;
  mdcSelectionCreate(locator, parts);
  record->setItemLocator(locator);
  record->setFileSize(static_cast<unsigned long long>(status.st_size));
  record->setDateNumeric(static_cast<long long>(status.st_mtime));
  std::tm utc;
  std::time_t const time = status.st_mtime;
  char date[32];
  if (::gmtime_r(&time, &utc) != nullptr && std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &utc) != 0) {
    record->setDate(date);
  }
  return record;
}

// What a file type is called in a report.
char const* specialFileName(mode_t mode) {
  if (S_ISFIFO(mode)) return "named pipe";
  if (S_ISSOCK(mode)) return "socket";
  if (S_ISCHR(mode)) return "character device";
  if (S_ISBLK(mode)) return "block device";
  return "file of unknown type";
}

// A leaf of a directory tree: a file, or a link left unfollowed.
class DirectoryLeaf : public ma::VfsFixedEntry, public Positioned {
 public:
  DirectoryLeaf(boost::shared_ptr<ma::ItemInfo> item, std::string position, std::string linkTarget)
      : ma::VfsFixedEntry(std::move(item), boost::shared_ptr<ma::VfsUserData>()),
        position_(std::move(position)),
        linkTarget_(std::move(linkTarget)) {}

  std::string const& positionalPath() const override { return position_; }
  std::string const& linkTarget() const { return linkTarget_; }

 private:
  std::string const position_;
  std::string const linkTarget_;
};

class DirectoryFolder;

// The children of `folder`, read from its directory now.
Children listDirectory(DirectoryFolder& folder);

// A folder of a directory tree.
class DirectoryFolder : public ma::VfsEntry, public Positioned {
 public:
  DirectoryFolder(std::shared_ptr<DirectoryNode> node, boost::shared_ptr<ma::ItemInfo> item, std::string position)
      : node_(std::move(node)), item_(std::move(item)), position_(std::move(position)) {}

  using ma::VfsEntry::getIterator;
  // An iterator that reads the directory on the storage worker.
  boost::shared_ptr<ma::VfsIterator> getIterator() override;
  // The same iterator: the criteria are not applied (identifier queries use it).
  boost::shared_ptr<ma::VfsIterator> getIterator(ma::VfsSearchCriteria const&, ma::VfsOrderCriteria const&,
                                                 ma::VfsFilterCriteria const&) override {
    return getIterator();
  }
  boost::shared_ptr<ma::ItemInfo> getItemInfo() override { return item_; }
  boost::shared_ptr<ma::VfsUserData> getUserData() override { return boost::shared_ptr<ma::VfsUserData>(); }
  bool hasIterator() override { return true; }

  // "" and identifier queries as the base resolves them; an index part
  // ("$N", "N") as a fixed folder resolves it, over this directory's
  // listing alone.
  int resolvePathPart(boost::shared_ptr<ma::VfsEntry>& child, std::string& rest, std::string& resolvedPath,
                      std::string path, std::string query) override {
    if (path.empty() || path.compare(0, 4, "UUID") == 0) {
      return ma::VfsEntry::resolvePathPart(child, rest, resolvedPath, path, query);
    }
    return fixedView()->resolvePathPart(child, rest, resolvedPath, path, query);
  }

  std::string const& positionalPath() const override { return position_; }

  // The listing as a fixed folder of the same record (for the library's
  // index steps and sorting).
  boost::shared_ptr<ma::VfsFixedFolder> fixedView() {
    boost::shared_ptr<ma::VfsFixedFolder> view(new ma::VfsFixedFolder(item_));
    for (auto& child : listDirectory(*this)) view->addEntry(child);
    return view;
  }

  DirectoryNode& node() { return *node_; }
  std::shared_ptr<DirectoryNode> const& sharedNode() const { return node_; }

 private:
  std::shared_ptr<DirectoryNode> const node_;
  boost::shared_ptr<ma::ItemInfo> const item_;
  std::string const position_;
};

// Iterates over a folder's directory: the first step that needs the
// children reads them on the storage worker and answers from there; the
// steps after it answer at once, on the caller's thread. A caller may ask
// early (getNTotal with a callback that ignores the count) to have the
// directory read while it does other work.
class DirectoryIterator : public ma::VfsIterator {
 public:
  explicit DirectoryIterator(boost::shared_ptr<DirectoryFolder> const& folder)
      : ma::VfsIterator(folder), state_(std::make_shared<State>()) {
    state_->folder = folder;
  }

  using ma::VfsIterator::advance;
  using ma::VfsIterator::getCurrentChild;
  using ma::VfsIterator::getCurrentChildPath;
  using ma::VfsIterator::getNTotal;
  using ma::VfsIterator::rewind;
  using ma::VfsIterator::seekTo;

  void getNTotal(IntCallback done) override {
    withChildren([done](State& state) { done(static_cast<int>(state.children.size())); });
  }
  void rewind(IntCallback done) override {
    withChildren([done](State& state) {
      state.position = 0;
      done(0);
    });
  }
  void advance(IntCallback done) override {
    withChildren([done](State& state) {
      if (state.position < state.children.size()) ++state.position;
      done(static_cast<int>(state.position));
    });
  }
  void seekTo(int position, IntCallback done) override {
    withChildren([position, done](State& state) {
      state.position = position < 1 ? 0 : std::min(static_cast<std::size_t>(position), state.children.size());
      done(static_cast<int>(state.position));
    });
  }
  void getCurrentChild(EntryCallback done) override {
    withChildren([done](State& state) {
      done(state.position < state.children.size() ? state.children[state.position]
                                                  : boost::shared_ptr<ma::VfsEntry>());
    });
  }
  void getCurrentChildPath(std::string path, PathCallback done) override {
    done(path + "$" + std::to_string(state_->position));
  }

 private:
  // Shared with the worker's jobs, which may outlive the iterator.
  struct State {
    boost::shared_ptr<DirectoryFolder> folder;
    std::atomic<bool> listed{false};  // set (release) by the worker once `children` is read
    Children children;
    std::size_t position = 0;
  };

  // Runs `step` over the children: at once when they are read, else on the
  // worker after reading them. The worker runs jobs in order, so a step
  // asked for while an earlier request still reads the directory runs after
  // it and finds the children read.
  template <typename Step>
  void withChildren(Step step) {
    if (state_->listed.load(std::memory_order_acquire)) {
      step(*state_);
      return;
    }
    std::shared_ptr<State> state = state_;
    postToStorageWorker([state, step] {
      if (!state->listed.load(std::memory_order_relaxed)) {
        state->children = listDirectory(*state->folder);
        state->listed.store(true, std::memory_order_release);
      }
      step(*state);
    });
  }

  std::shared_ptr<State> const state_;
};

boost::shared_ptr<ma::VfsIterator> DirectoryFolder::getIterator() {
  return boost::shared_ptr<ma::VfsIterator>(
      new DirectoryIterator(boost::static_pointer_cast<DirectoryFolder>(shared_from_this())));
}

// Whether directory (device, inode) is `node` or one of its ancestors.
bool isAncestorOrSelf(DirectoryNode const& node, struct stat const& status) {
  for (DirectoryNode const* at = &node; at != nullptr; at = at->parent.get()) {
    if (at->device == status.st_dev && at->inode == status.st_ino) return true;
  }
  return false;
}

// The target text of link `name` in directory `fd`.
std::string readLink(int fd, char const* name, std::size_t sizeHint) {
  std::vector<char> buffer(std::max<std::size_t>(sizeHint, 64) + 1);
  for (;;) {
    ssize_t const length = ::readlinkat(fd, name, buffer.data(), buffer.size());
    if (length < 0) return std::string();
    if (static_cast<std::size_t>(length) < buffer.size()) return std::string(buffer.data(), static_cast<std::size_t>(length));
    buffer.resize(buffer.size() * 2);
  }
}

// Removes `name` from directory `fd` (the test hook).
void removeForTest(int fd, char const* name) {
  if (::unlinkat(fd, name, 0) != 0) ::unlinkat(fd, name, AT_REMOVEDIR);
}

struct DirCloser {
  void operator()(DIR* directory) const { ::closedir(directory); }
};

Children listDirectory(DirectoryFolder& folder) {
  Children children;
  DirectoryNode& node = folder.node();
  if (node.sealed) return children;
  Scan& scan = *node.scan;
  std::string const path = pathOf(node);
  std::string error;
  int const fd = scan.cache.openFresh(node, &error);
  if (fd < 0) {
    scan.report->skip(path, "cannot be opened: " + error);
    return children;
  }
  std::unique_ptr<DIR, DirCloser> directory(::fdopendir(fd));
  if (!directory) {
    int const failure = errno;
    ::close(fd);
    scan.report->skip(path, std::string("cannot be listed: ") + std::strerror(failure));
    return children;
  }
  std::vector<std::string> names;
  for (;;) {
    errno = 0;
    dirent* listed = ::readdir(directory.get());
    if (listed == nullptr) {
      if (errno != 0) scan.report->skip(path, std::string("listing stopped: ") + std::strerror(errno));
      break;
    }
    char const* name = listed->d_name;
    if (name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'))) continue;
    names.emplace_back(name);
  }
  std::sort(names.begin(), names.end());
  scan.report->listed(names.size());

  std::string const prefix = path == "/" ? std::string() : path;
  int const flags = scan.settings.follow ? 0 : AT_SYMLINK_NOFOLLOW;
  children.reserve(names.size());
  for (std::string const& name : names) {
    std::string const childPath = prefix + "/" + name;
    if (!scan.removeBeforeStat.empty() && name == scan.removeBeforeStat) removeForTest(fd, name.c_str());
    struct stat status;
    if (::fstatat(fd, name.c_str(), &status, flags) != 0) {
      int const failure = errno;  // read at once: nothing else may change it first
      struct stat link;
      if (failure == ENOENT && scan.settings.follow &&
          ::fstatat(fd, name.c_str(), &link, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(link.st_mode)) {
        scan.report->skip(childPath, "dangling symbolic link");
      } else if (failure == ENOENT) {
        scan.report->skip(childPath, "vanished before it could be read");
      } else if (failure == ELOOP) {
        scan.report->skip(childPath, "too many levels of symbolic links");
      } else {
        scan.report->skip(childPath, std::strerror(failure));
      }
      continue;
    }
    std::string const position = folder.positionalPath() + "$" + std::to_string(children.size());
    if (S_ISLNK(status.st_mode)) {
      std::string const target = readLink(fd, name.c_str(), static_cast<std::size_t>(status.st_size));
      boost::shared_ptr<ma::ItemInfo> item = recordOf(kindOfFileName(name), name, childPath, status);
      children.emplace_back(new DirectoryLeaf(item, position, target));
    } else if (S_ISDIR(status.st_mode)) {
      if (!scan.mayRead(status, true)) {
        scan.report->skip(childPath, "not readable");
      } else if (isAncestorOrSelf(node, status)) {
        scan.report->skip(childPath, "loop: leads back to a directory above it");
      } else {
        bool const sealed = scan.settings.oneFileSystem && status.st_dev != scan.rootDevice;
        boost::shared_ptr<ma::ItemInfo> item = recordOf(ma::ITEM_TYPE_FOLDER, name, childPath, status);
        std::shared_ptr<DirectoryNode> child =
            std::make_shared<DirectoryNode>(node.scan, folder.sharedNode(), name, status, sealed);
        children.emplace_back(new DirectoryFolder(std::move(child), item, position));
      }
    } else if (S_ISREG(status.st_mode)) {
      if (!scan.mayRead(status, false)) {
        scan.report->skip(childPath, "not readable");
      } else {
        boost::shared_ptr<ma::ItemInfo> item = recordOf(kindOfFileName(name), name, childPath, status);
        children.emplace_back(new DirectoryLeaf(item, position, std::string()));
      }
    } else {
      scan.report->skip(childPath, std::string(specialFileName(status.st_mode)) + ", not opened");
    }
  }
  return children;
}

// `path` made absolute and canonical (links resolved, no ".", ".." or
// "//"); throws InputError naming `path` when it cannot be.
std::string canonicalPath(std::string const& path) {
  std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
  if (!resolved) throw InputError("directory " + quoted(path) + ": " + std::strerror(errno));
  return resolved.get();
}

}  // namespace

ScanReport::~ScanReport() {
  if (showProgress_) std::fputs("\r\033[K", stderr);
}

void ScanReport::skip(std::string const& path, std::string const& reason) {
  std::lock_guard<std::mutex> lock(mutex_);
  if (showProgress_) std::fputs("\r\033[K", stderr);
  std::fprintf(stderr, "ma-cli: skipped %s: %s\n", escaped(path).c_str(), reason.c_str());
  skipped_.push_back({path, reason});
  ++gSkippedThisRun;
}

void ScanReport::listed(std::size_t count) {
  std::lock_guard<std::mutex> lock(mutex_);
  std::size_t const before = listed_;
  listed_ += count;
  if (showProgress_ && before / kProgressStep != listed_ / kProgressStep) {
    std::fprintf(stderr, "\rma-cli: scanning, %zu entries", listed_ / kProgressStep * kProgressStep);
  }
}

std::vector<SkippedEntry> ScanReport::skipped() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return skipped_;
}

std::size_t entriesSkippedThisRun() { return gSkippedThisRun.load(); }

boost::shared_ptr<ma::VfsEntry> openDirectoryTree(std::string const& path, ScanSettings const& settings,
                                                  boost::shared_ptr<ScanReport> const& report) {
  std::string const root = canonicalPath(path.empty() ? "." : path);
  struct stat status;
  if (::stat(root.c_str(), &status) != 0) throw InputError("directory " + quoted(path) + ": " + std::strerror(errno));
  if (!S_ISDIR(status.st_mode)) throw InputError(quoted(path) + " is not a directory");
  int const fd = ::open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) throw InputError("directory " + quoted(path) + " cannot be read: " + std::strerror(errno));
  DIR* probe = ::fdopendir(::dup(fd));
  bool const readable = probe != nullptr && ::readdir(probe) != nullptr;
  int const failure = errno;
  if (probe != nullptr) ::closedir(probe);
  if (!readable) {
    ::close(fd);
    throw InputError("directory " + quoted(path) + " cannot be read: " + std::strerror(failure));
  }

  std::shared_ptr<Scan> scan = std::make_shared<Scan>(settings, report);
  scan->rootDevice = status.st_dev;
  std::shared_ptr<DirectoryNode> node = std::make_shared<DirectoryNode>(scan, nullptr, root, status, false);
  scan->cache.pinRoot(*node, fd);
  std::string const caption = root == "/" ? "/" : root.substr(root.rfind('/') + 1);
  boost::shared_ptr<ma::ItemInfo> item = recordOf(ma::ITEM_TYPE_FOLDER, caption, root, status);
  return boost::shared_ptr<ma::VfsEntry>(new DirectoryFolder(node, item, std::string()));
}

std::string linkTargetOf(ma::VfsEntry& entry) {
  DirectoryLeaf const* leaf = dynamic_cast<DirectoryLeaf const*>(&entry);
  return leaf ? leaf->linkTarget() : std::string();
}

bool isDirectoryFolder(ma::VfsEntry& entry) { return dynamic_cast<DirectoryFolder*>(&entry) != nullptr; }

boost::shared_ptr<ma::VfsIterator> sortedDirectoryIterator(ma::VfsEntry& entry, std::string const& criteria) {
  DirectoryFolder* folder = dynamic_cast<DirectoryFolder*>(&entry);
  if (!folder) return boost::shared_ptr<ma::VfsIterator>();
  return folder->fixedView()->getSortedIterator(criteria);
}

}  // namespace ma_cli
