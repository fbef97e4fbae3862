// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// Search, order and filter criteria: what a caller asks of an entry's
/// iterator factory, VfsEntry::getIterator(search, order, filter).
///
/// The criteria are plain value lists. The caller fills them, the factory of
/// a concrete entry reads them back in insertion order and gives the texts
/// their meaning; nothing here parses or checks a text. Copies are deep.
/// The fixed tree (ma/mdc_vfs_fixed.h) ignores all three.
///
/// Exceptions: building and adding copy strings, so they let std::bad_alloc
/// through; the readers throw nothing.
///
/// Thread-safety: none. A criteria object is a value owned by one thread at a
/// time; const access from several threads is safe.
#ifndef MA_MDC_VFS_CRITERIA_H_
#define MA_MDC_VFS_CRITERIA_H_

#include <string>
#include <vector>

#include "ma/export.h"

namespace ma {

/// Which children a caller wants.
class MA_COMMON_EXPORT VfsSearchCriteria {
 public:
  /// One condition of three texts, kept exactly as given (empty texts too).
  /// By convention a property, a relation and a value; the factory decides.
  class MA_COMMON_EXPORT SingleCriterium {
   public:
    /// Keeps copies of the three texts as given (empty texts too).
    /// @param property the first text, by convention a property
    /// @param relation the second text, by convention a relation
    /// @param value the third text, by convention a value
    /// @throws std::bad_alloc if a copy cannot be made
    SingleCriterium(std::string const& property, std::string const& relation,
                    std::string const& value);

    /// The property: what the condition looks at.
    /// @return the first text given to the constructor, unchanged
    std::string const& getProperty() const { return m_property; }
    /// The relation: how the property is compared with the value.
    /// @return the second text given to the constructor, unchanged
    std::string const& getRelation() const { return m_relation; }
    /// The value the property is compared with.
    /// @return the third text given to the constructor, unchanged
    std::string const& getValue() const { return m_value; }

   private:
    std::string m_property;
    std::string m_relation;
    std::string m_value;
  };

  /// Appends a copy of `criterium` at the end; duplicates are kept.
  /// @param criterium the condition to add
  /// @throws std::bad_alloc when the list cannot grow; it is then unchanged
  void add(SingleCriterium const& criterium);

  /// The conditions, for the iterator factory to read.
  /// @return every criterium added, in insertion order (empty at first)
  std::vector<SingleCriterium> const& getCriteria() const { return m_criteria; }

 private:
  std::vector<SingleCriterium> m_criteria;
};

/// In which order a caller wants the children. The library only ever passes
/// it empty; it has no operations of its own beyond these inline ones.
class MA_COMMON_EXPORT VfsOrderCriteria {
 public:
  /// One sort key: a property and a direction, kept exactly as given.
  struct SingleCriterium {
    std::string property;   ///< what to sort by
    std::string direction;  ///< which way
  };

  /// Appends a copy of `criterium` at the end; duplicates are kept.
  /// @param criterium the sort key to add
  /// @throws std::bad_alloc when the list cannot grow; it is then unchanged
  void add(SingleCriterium const& criterium) { m_criteria.push_back(criterium); }

  /// The sort keys, for the iterator factory to read.
  /// @return every criterium added, in insertion order (empty at first)
  std::vector<SingleCriterium> const& getCriteria() const { return m_criteria; }

 private:
  std::vector<SingleCriterium> m_criteria;
};

/// Which children a caller wants to leave out.
class MA_COMMON_EXPORT VfsFilterCriteria {
 public:
  /// One filter text, kept exactly as given.
  class MA_COMMON_EXPORT SingleCriterium {
   public:
    /// Keeps a copy of `filter` as given. Converts implicitly.
    /// @param filter the filter text (the empty one too)
    /// @throws std::bad_alloc if the copy cannot be made
    SingleCriterium(std::string const& filter);

    /// The filter text: which children to leave out.
    /// @return the text given to the constructor, unchanged
    std::string const& getFilter() const { return m_filter; }

   private:
    std::string m_filter;
  };

  /// Appends a copy of `criterium` at the end; duplicates are kept.
  /// @param criterium the filter to add
  /// @throws std::bad_alloc when the list cannot grow; it is then unchanged
  void add(SingleCriterium const& criterium);

  /// The filters, for the iterator factory to read.
  /// @return every criterium added, in insertion order (empty at first)
  std::vector<SingleCriterium> const& getCriteria() const { return m_criteria; }

 private:
  std::vector<SingleCriterium> m_criteria;
};

}  // namespace ma

#endif  // MA_MDC_VFS_CRITERIA_H_
