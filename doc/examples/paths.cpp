// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Paths in the sample tree: positions, identifier queries and failures.
// [guide:paths-includes]
#include <string>

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>

#include "ma/mdc_item.h"       // ma::FolderItemInfo
#include "ma/mdc_vfs_base.h"   // ma::VfsEntry::resolvePath(), findUuid()
#include "ma/mdc_vfs_fixed.h"  // ma::VfsFixedFolder::findEntry(), findEntrybyUUID()
// [guide:end]

#include "example_tree.h"

using example::captionOf;
using example::check;

int main() {
  boost::shared_ptr<ma::VfsFixedFolder> root = example::buildMediaTree();

  // [guide:paths]
  boost::shared_ptr<ma::VfsEntry> tatort = root->resolvePath("$2$0");  // third child, its first
  boost::shared_ptr<ma::VfsEntry> same = root->resolvePath("2$0");     // the "$" is optional
  boost::shared_ptr<ma::VfsEntry> itself = root->resolvePath("");
  // [guide:end]
  check(captionOf(tatort) == "Tatort", "$2$0");
  check(same == tatort, "same entry both ways");
  check(itself == root, "the empty path names the entry itself");

  // [guide:find-uuid]
  // A fixed folder looks its direct children up by identifier or caption.
  boost::shared_ptr<ma::VfsFixedFolder> recordings =
      boost::dynamic_pointer_cast<ma::VfsFixedFolder>(root->resolvePath("$2"));
  check(recordings->findEntrybyUUID("UUID-rec-2") == root->resolvePath("$2$1"), "by identifier");
  check(recordings->findEntry("Bergdoktor") == root->resolvePath("$2$2"), "by caption");
  check(!root->findEntrybyUUID("UUID-rec-2"), "grandchildren are not searched");

  // findUuid(), and with it the "UUID..." path part, walks the iterator of
  // getIterator(search, order, filter), which a fixed folder does not offer.
  check(!recordings->findUuid("UUID-rec-2"), "no criteria iterator in the fixed tree");
  check(!root->resolvePath("$2$UUID-rec-2"), "hence no identifier query either");
  // [guide:end]

  // [guide:path-failures]
  check(!root->resolvePath("$7"), "out of range: empty pointer, failure trace");
  check(!root->resolvePath("$x"), "not a number");
  check(!root->resolvePath("UUID-nobody"), "no child with that identifier");

  boost::shared_ptr<ma::VfsEntry> found, parent;
  std::string parentPath;
  int result = root->resolvePath(found, parentPath, parent, "$2$9", "");
  check(result == -2 && !found, "-2: not resolved");
  check(parent == root, "parent: the entry from which the failing one was reached");
  // [guide:end]

  // [guide:unowned]
  ma::VfsFixedFolder unowned(boost::shared_ptr<ma::ItemInfo>(new ma::FolderItemInfo("x", "y")));
  bool threw = false;
  try {
    unowned.resolvePath("");
  } catch (boost::bad_weak_ptr const&) {
    threw = true;  // an entry must be owned by a boost::shared_ptr
  }
  check(threw, "bad_weak_ptr");
  // [guide:end]

  // The five-argument form on success: the parent and its resolved path.
  result = root->resolvePath(found, parentPath, parent, "$2$1", "");
  check(result == 0 && captionOf(found) == "Abendschau", "found");
  check(captionOf(parent) == "Recordings" && parentPath == "$2", "parent and its path");
  return 0;
}
