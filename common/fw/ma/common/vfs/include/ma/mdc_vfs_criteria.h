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
    /// Keeps the three texts as given.
    SingleCriterium(std::string const& property, std::string const& relation,
                    std::string const& value);

    /// The first text, by convention a property.
    std::string const& getProperty() const { return m_property; }
    /// The second text, by convention a relation.
    std::string const& getRelation() const { return m_relation; }
    /// The third text, by convention a value.
    std::string const& getValue() const { return m_value; }

   private:
    std::string m_property;
    std::string m_relation;
    std::string m_value;
  };

  /// Appends a copy of `criterium` at the end; duplicates are kept.
  void add(SingleCriterium const& criterium);

  /// Every criterium added, in insertion order.
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
  void add(SingleCriterium const& criterium) { m_criteria.push_back(criterium); }

  /// Every criterium added, in insertion order.
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
    /// Keeps `filter` as given. Converts implicitly.
    SingleCriterium(std::string const& filter);

    /// The filter text.
    std::string const& getFilter() const { return m_filter; }

   private:
    std::string m_filter;
  };

  /// Appends a copy of `criterium` at the end; duplicates are kept.
  void add(SingleCriterium const& criterium);

  /// Every criterium added, in insertion order.
  std::vector<SingleCriterium> const& getCriteria() const { return m_criteria; }

 private:
  std::vector<SingleCriterium> m_criteria;
};

}  // namespace ma

#endif  // MA_MDC_VFS_CRITERIA_H_
