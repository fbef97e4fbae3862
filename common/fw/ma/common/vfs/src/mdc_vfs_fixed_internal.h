// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Internal steps of the fixed tree, visible to the white-box tests only (the
// library does not export them).
//
// VfsFixedFolder::resolvePathPart() checks an index against the number of
// children and then fetches the child with a range-checked access. Nothing
// runs between the two, so only a concurrent removal can make the fetch fail;
// that failure is reached here through fetchIndexedChild().
#ifndef MA_VFS_MDC_VFS_FIXED_INTERNAL_H_
#define MA_VFS_MDC_VFS_FIXED_INTERNAL_H_

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>

#include "ma/mdc_vfs_base.h"
#include "ma/mdc_vfs_fixed.h"

namespace ma {
namespace vfs_internal {

// Sets `child` to child `position` of `children`, fetched with a range-checked
// access, and returns 0. If the list does not reach that far (it shrank after
// the caller checked the index), writes resolvePathPart()'s "specifies child
// that is out of range by exception" failure naming `path` and `index`,
// leaves `child` alone and returns kPathNotResolved.
int fetchIndexedChild(VfsFixedFolder::Children const& children, std::size_t position,
                      std::string const& path, std::string const& index,
                      boost::shared_ptr<VfsEntry>& child);

}  // namespace vfs_internal
}  // namespace ma

#endif  // MA_VFS_MDC_VFS_FIXED_INTERNAL_H_
