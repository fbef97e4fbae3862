// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Path resolution: the driver loop, the base step (empty part, identifier
// queries) and the fixed folder's positional parts.
#include <errno.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "ma_test/trace_capture.h"
#include "vfs_test_support.h"

namespace {

using testing::ElementsAre;
using vfs_test::BrowsableEntry;
using vfs_test::captionOf;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::IsLocated;
using vfs_test::located;
using vfs_test::makeFolder;
using vfs_test::makeFolderOf;
using vfs_test::makeItem;
using vfs_test::makeLeaf;

constexpr unsigned int kVfsCalls = 24580000;
constexpr unsigned int kVfsFailures = 24579000;
constexpr unsigned int kVfsQueries = 24576001;

const char kBase[] = "mdc_vfs_base.cpp";
const char kFixed[] = "mdc_vfs_fixed.cpp";

std::string resolvingLine(std::string const& remaining, std::string const& resolved) {
  return located(
      kBase, 240, "resolvePath",
      "Resolving path part \"" + remaining + "\" childTotal = \"" + resolved + "\"... \n");
}
std::string failedLine(std::string const& path, std::string const& remaining, int status) {
  return located(kBase, 246, "resolvePath",
                 "Lookup of \"" + path + "\" failed with currPath \"" + remaining + "\" (" +
                     std::to_string(status) + ").\n");
}
std::string queryLine(int line, std::string const& text) {
  return located(kBase, line, "resolvePathPart", text);
}

// The outputs of one call of the five-argument resolvePath, pre-set to
// values that show whether the call touched them.
struct Walk {
  explicit Walk(EntryPtr const& callerParent = EntryPtr()) : parent(callerParent) {}

  int run(ma::VfsEntry& start, std::string const& path, std::string const& query = "") {
    return start.resolvePath(result, resultPath, parent, path, query);
  }

  EntryPtr result = makeLeaf("untouched result");
  std::string resultPath = "untouched path";
  EntryPtr parent;
};

// The outputs of one call of resolvePathPart, pre-set likewise.
struct Step {
  int run(ma::VfsEntry& entry, std::string const& path, std::string const& query = "") {
    return entry.resolvePathPart(child, rest, resolved, path, query);
  }

  EntryPtr child = makeLeaf("untouched child");
  std::string rest = "untouched rest";
  std::string resolved = "before";
};

// An entry whose step is scripted: it records what it was given and answers
// with the fixed result, child and rest.
class ScriptedStepEntry : public BrowsableEntry {
 public:
  ScriptedStepEntry(int result, EntryPtr child, std::string rest)
      : m_result(result), m_child(child), m_rest(rest) {}

  int resolvePathPart(EntryPtr& child, std::string& rest, std::string& resolvedPath,
                      std::string path, std::string query) override {
    seen.push_back(path + "|" + resolvedPath + "|" + query);
    resolvedPath += "<" + path + ">";
    child = m_child;
    rest = m_rest;
    return m_result;
  }

  std::vector<std::string> seen;  // "path|resolvedPath|query" per call

 private:
  int m_result;
  EntryPtr m_child;
  std::string m_rest;
};

// --- the driver and the base step ------------------------------------------

TEST(VfsPathTest, EmptyPathResolvesToTheEntryItself) {
  EntryPtr leaf = makeLeaf("leaf");
  FolderPtr folder = makeFolderOf({"a"});
  boost::shared_ptr<BrowsableEntry> browsable(new BrowsableEntry);
  EXPECT_EQ(leaf, leaf->resolvePath(""));
  EXPECT_EQ(folder, folder->resolvePath(""));
  EXPECT_EQ(browsable, browsable->resolvePath(""));
}

TEST(VfsPathTest, EmptyPathSetsResultClearsResultPathAndResetsParentWithoutTrace) {
  FolderPtr folder = makeFolderOf({"a"});
  Walk walk(makeLeaf("caller's parent"));
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, walk.run(*folder, ""));
  EXPECT_EQ(folder, walk.result);
  EXPECT_EQ("", walk.resultPath);
  EXPECT_FALSE(walk.parent);
  EXPECT_TRUE(capture.texts().empty());
}

TEST(VfsPathTest, UuidPathOnAnEntryWithTheBaseStepFindsADirectChild) {
  boost::shared_ptr<BrowsableEntry> entry(new BrowsableEntry(makeItem("p", "P")));
  EntryPtr wanted = makeLeaf("w", "UUID-2");
  entry->add(makeLeaf("o", "UUID-1"));
  entry->add(wanted);
  EXPECT_EQ(wanted, entry->resolvePath("UUID-2"));

  Walk walk;
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, walk.run(*entry, "UUID-2"));
  EXPECT_EQ(wanted, walk.result);
  EXPECT_EQ(entry, walk.parent);
  EXPECT_EQ("", walk.resultPath);
  std::vector<std::string> pathLines;
  for (const zel_standin::TraceLine& line : capture.lines()) {
    if (line.text.find(":resolvePath") == std::string::npos) continue;
    pathLines.push_back(line.text);
    const bool driver = line.text.find(":resolvePath()") != std::string::npos;
    EXPECT_EQ(driver ? kVfsCalls : kVfsQueries, line.category) << line.text;
  }
  EXPECT_THAT(pathLines, ElementsAre(resolvingLine("UUID-2", ""),
                                     queryLine(367, "Found possible query: UUID-2.\n"),
                                     queryLine(377, "Looking for uuid \"UUID-2\".\n"),
                                     queryLine(380, "Found uuid \"UUID-2\".\n")));
}

TEST(VfsPathTest, UuidPathIsLookedUpWholePrefixIncluded) {
  boost::shared_ptr<BrowsableEntry> entry(new BrowsableEntry);
  entry->add(makeLeaf("w", "2"));  // the identifier without the prefix
  EntryPtr withDollar = makeLeaf("d", "UUID$0");
  entry->add(withDollar);
  EXPECT_FALSE(entry->resolvePath("UUID2"));
  EXPECT_EQ(withDollar, entry->resolvePath("UUID$0"));  // no rest: the walk ends
}

TEST(VfsPathTest, UuidPathWithoutMatchFailsWithMinus38InTheTrace) {
  boost::shared_ptr<BrowsableEntry> entry(new BrowsableEntry);
  entry->add(makeLeaf("o", "UUID-1"));
  ma_test::TraceCapture capture;
  EXPECT_FALSE(entry->resolvePath("UUID-9"));
  const std::vector<zel_standin::TraceLine> lines = capture.lines();
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(failedLine("UUID-9", "UUID-9", -38), lines.back().text);
  EXPECT_EQ(kVfsFailures, lines.back().category);
  EXPECT_THAT(capture.texts(),
              testing::Not(testing::Contains(queryLine(371, "Unsupported query: UUID-9.\n"))));
}

TEST(VfsPathTest, PathAbcTracesAPossibleAndAnUnsupportedQueryAndResolvesNothing) {
  EntryPtr leaf = makeLeaf("leaf");
  ma_test::TraceCapture capture;
  EXPECT_FALSE(leaf->resolvePath("abc"));
  EXPECT_THAT(
      capture.texts(),
      ElementsAre(resolvingLine("abc", ""), queryLine(367, "Found possible query: abc.\n"),
                  queryLine(371, "Unsupported query: abc.\n"), failedLine("abc", "abc", -38)));
  const std::vector<zel_standin::TraceLine> lines = capture.lines();
  EXPECT_EQ(kVfsCalls, lines[0].category);
  EXPECT_EQ(kVfsQueries, lines[1].category);
  EXPECT_EQ(kVfsQueries, lines[2].category);
  EXPECT_EQ(kVfsFailures, lines[3].category);
}

TEST(VfsPathTest, PathSevenOnAnEntryWithTheBaseStepFailsWithMinus38) {
  EntryPtr leaf = makeLeaf("leaf");
  ma_test::TraceCapture capture;
  EXPECT_FALSE(leaf->resolvePath("7"));
  EXPECT_THAT(capture.texts(), ElementsAre(resolvingLine("7", ""), failedLine("7", "7", -38)));
}

TEST(VfsPathTest, PathSevenOnAFixedFolderUsesTheFolderStep) {
  FolderPtr folder = makeFolderOf({"0", "1", "2", "3", "4", "5", "6", "7"});
  EXPECT_EQ("7", captionOf(folder->resolvePath("7")));
}

TEST(VfsPathTest, OnlyTheExactPrefixUuidMakesAnIdentifierQuery) {
  boost::shared_ptr<BrowsableEntry> entry(new BrowsableEntry);
  entry->add(makeLeaf("a", "uuid1"));
  entry->add(makeLeaf("b", "UUI"));
  ma_test::TraceCapture capture;
  EXPECT_FALSE(entry->resolvePath("uuid1"));
  EXPECT_FALSE(entry->resolvePath("UUI"));
  EXPECT_THAT(capture.texts(), testing::Contains(queryLine(371, "Unsupported query: uuid1.\n")));
  EXPECT_THAT(capture.texts(), testing::Contains(queryLine(371, "Unsupported query: UUI.\n")));
  EXPECT_THAT(
      capture.texts(),
      testing::Not(testing::Contains(IsLocated(kBase, "findUuid", "We have an iterator.\n"))));
}

TEST(VfsPathTest, PartsStartingWithANonLetterAreNoQuery) {
  EntryPtr leaf = makeLeaf("leaf");
  for (const std::string path : {"$1", " a", "_a", "\xc3\xa9t\xc3\xa9", "-", "\x7f"}) {
    ma_test::TraceCapture capture;
    EXPECT_FALSE(leaf->resolvePath(path)) << path;
    EXPECT_THAT(capture.texts(), ElementsAre(resolvingLine(path, ""), failedLine(path, path, -38)))
        << path;
  }
}

TEST(VfsPathTest, BaseStepAnswersMinus38WithEmptyChildAndRestAndLeavesResolvedPath) {
  EntryPtr leaf = makeLeaf("leaf");
  Step step;
  EXPECT_EQ(-38, step.run(*leaf, "x$1", "query"));
  EXPECT_FALSE(step.child);
  EXPECT_EQ("", step.rest);
  EXPECT_EQ("before", step.resolved);
}

TEST(VfsPathTest, BaseStepNamesTheEntryForTheEmptyPart) {
  EntryPtr leaf = makeLeaf("leaf");
  Step step;
  EXPECT_EQ(0, step.run(*leaf, ""));
  EXPECT_EQ(leaf, step.child);
  EXPECT_EQ("", step.rest);
  EXPECT_EQ("before", step.resolved);
}

TEST(VfsPathTest, OneStepWalkReportsTheStartAsParentAndAnEmptyResultPath) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  Walk walk;
  EXPECT_EQ(0, walk.run(*folder, "$1"));
  EXPECT_EQ("b", captionOf(walk.result));
  EXPECT_EQ(folder, walk.parent);
  EXPECT_EQ("", walk.resultPath);
}

TEST(VfsPathTest, TwoStepWalkReportsTheFirstStepAsParentAndItsResolvedPath) {
  FolderPtr root = makeFolder("root");
  FolderPtr middle = makeFolderOf({"x", "y"});
  root->addEntry(makeLeaf("first"));
  root->addEntry(middle);
  Walk walk;
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, walk.run(*root, "$1$0"));
  EXPECT_EQ("x", captionOf(walk.result));
  EXPECT_EQ(middle, walk.parent);
  EXPECT_EQ("$1", walk.resultPath);
  std::vector<std::string> driverLines;
  for (const std::string& text : capture.texts()) {
    if (text.find(":resolvePath()") != std::string::npos) driverLines.push_back(text);
  }
  EXPECT_THAT(driverLines, ElementsAre(resolvingLine("$1$0", ""), resolvingLine("0", "$1")));
}

TEST(VfsPathTest, ThreeStepWalkReportsTheResolvedPathUpToTheParent) {
  FolderPtr root = makeFolder("root");
  FolderPtr one = makeFolder("one");
  FolderPtr two = makeFolderOf({"p", "q", "r"});
  root->addEntry(one);
  one->addEntry(makeLeaf("filler"));
  one->addEntry(two);
  Walk walk;
  EXPECT_EQ(0, walk.run(*root, "0$1$2"));
  EXPECT_EQ("r", captionOf(walk.result));
  EXPECT_EQ(two, walk.parent);
  EXPECT_EQ("$0$1", walk.resultPath);
  EXPECT_EQ("r", captionOf(root->resolvePath("$0$1$2")));
}

TEST(VfsPathTest, FailedFirstStepLeavesEveryOutputAsTheCallerPassedIt) {
  FolderPtr folder = makeFolderOf({"a"});
  EntryPtr callersParent = makeLeaf("caller's parent");
  Walk walk(callersParent);
  const EntryPtr callersResult = walk.result;
  ma_test::TraceCapture capture;
  EXPECT_EQ(-2, walk.run(*folder, "$5"));
  EXPECT_EQ(callersResult, walk.result);
  EXPECT_EQ("untouched path", walk.resultPath);
  EXPECT_EQ(callersParent, walk.parent);
  EXPECT_EQ(failedLine("$5", "$5", -2), capture.texts().back());
}

TEST(VfsPathTest, FailedLaterStepLeavesTheEntryBeforeTheFailingOneAsParent) {
  FolderPtr root = makeFolder("root");
  FolderPtr middle = makeFolderOf({"x"});
  root->addEntry(middle);
  Walk walk;
  const EntryPtr callersResult = walk.result;
  ma_test::TraceCapture capture;
  EXPECT_EQ(-2, walk.run(*root, "$0$3"));
  EXPECT_EQ(callersResult, walk.result);
  EXPECT_EQ("untouched path", walk.resultPath);
  EXPECT_EQ(root, walk.parent);
  EXPECT_EQ(failedLine("$0$3", "3", -2), capture.texts().back());
}

// A client entry whose step does not return: it throws what it was given.
class ThrowingStepEntry : public BrowsableEntry {
 public:
  explicit ThrowingStepEntry(std::string const& message) : m_message(message) {}

  int resolvePathPart(EntryPtr& /*child*/, std::string& /*rest*/, std::string& /*resolvedPath*/,
                      std::string /*path*/, std::string /*query*/) override {
    throw std::runtime_error(m_message);
  }

 private:
  std::string m_message;
};

// root -> "$0" middle -> "$1" `second`: a walk whose third step is the
// second-level entry's own.
struct TwoLevels {
  explicit TwoLevels(EntryPtr const& second) {
    root->addEntry(middle);
    middle->addEntry(makeLeaf("filler"));
    middle->addEntry(second);
  }

  FolderPtr root = makeFolder("root");
  FolderPtr middle = makeFolder("middle");
};

TEST(VfsPathTest, StepThatThrowsAtTheSecondLevelLeavesTheFirstLevelEntryAsParent) {
  boost::shared_ptr<ThrowingStepEntry> thrower(new ThrowingStepEntry("client step failed"));
  TwoLevels tree(thrower);
  Walk walk(makeLeaf("caller's parent"));
  const EntryPtr callersResult = walk.result;
  try {
    walk.run(*tree.root, "$0$1$next");
    ADD_FAILURE() << "the client step's exception did not pass through";
  } catch (std::runtime_error const& error) {
    EXPECT_STREQ("client step failed", error.what());
  }
  EXPECT_EQ(tree.middle, walk.parent);
  EXPECT_EQ(callersResult, walk.result);
  EXPECT_EQ("untouched path", walk.resultPath);
}

TEST(VfsPathTest, UnownedChildAtTheSecondLevelLeavesTheFirstLevelEntryAsParent) {
  // The folder holds the child through a pointer that does not own it, so
  // the child's identifier query cannot reach its own shared pointer.
  BrowsableEntry unowned(makeItem("unowned"));
  unowned.add(makeLeaf("below", "UUID-1"));
  TwoLevels tree(EntryPtr(EntryPtr(), &unowned));
  Walk walk(makeLeaf("caller's parent"));
  const EntryPtr callersResult = walk.result;
  EXPECT_THROW(walk.run(*tree.root, "$0$1$UUID-1"), boost::bad_weak_ptr);
  EXPECT_EQ(tree.middle, walk.parent);
  EXPECT_EQ(callersResult, walk.result);
  EXPECT_EQ("untouched path", walk.resultPath);
}

TEST(VfsPathTest, FirstStepThatThrowsLeavesTheCallersParent) {
  boost::shared_ptr<ThrowingStepEntry> thrower(new ThrowingStepEntry("first step failed"));
  EntryPtr callersParent = makeLeaf("caller's parent");
  Walk walk(callersParent);
  const EntryPtr callersResult = walk.result;
  EXPECT_THROW(walk.run(*thrower, "$0$1"), std::runtime_error);
  EXPECT_EQ(callersParent, walk.parent);
  EXPECT_EQ(callersResult, walk.result);
  EXPECT_EQ("untouched path", walk.resultPath);
}

TEST(VfsPathTest, WalkIntoALeafFailsThereWithMinus38) {
  FolderPtr folder = makeFolderOf({"leaf"});
  ma_test::TraceCapture capture;
  EXPECT_FALSE(folder->resolvePath("$0$0"));
  EXPECT_EQ(failedLine("$0$0", "0", -38), capture.texts().back());
}

TEST(VfsPathTest, StepThatSucceedsWithoutChildIsAFailure) {
  boost::shared_ptr<ScriptedStepEntry> entry(new ScriptedStepEntry(0, EntryPtr(), ""));
  Walk walk;
  ma_test::TraceCapture capture;
  EXPECT_EQ(-2, walk.run(*entry, "p"));
  EXPECT_EQ(failedLine("p", "p", 0), capture.texts().back());
  EXPECT_EQ(kVfsFailures, capture.lines().back().category);
}

TEST(VfsPathTest, StepWithPositiveResultSucceeds) {
  EntryPtr target = makeLeaf("t");
  boost::shared_ptr<ScriptedStepEntry> entry(new ScriptedStepEntry(5, target, ""));
  EXPECT_EQ(target, entry->resolvePath("p"));
}

TEST(VfsPathTest, StepWithNegativeResultFailsEvenWithAChild) {
  boost::shared_ptr<ScriptedStepEntry> entry(new ScriptedStepEntry(-7, makeLeaf("t"), ""));
  ma_test::TraceCapture capture;
  EXPECT_FALSE(entry->resolvePath("p"));
  EXPECT_EQ(failedLine("p", "p", -7), capture.texts().back());
}

TEST(VfsPathTest, EveryStepGetsTheQueryAndTheResolvedPathOfTheWalkSoFar) {
  boost::shared_ptr<ScriptedStepEntry> last(new ScriptedStepEntry(0, makeLeaf("end"), ""));
  boost::shared_ptr<ScriptedStepEntry> first(new ScriptedStepEntry(0, last, "tail"));
  Walk walk;
  EXPECT_EQ(0, walk.run(*first, "head", "q=1"));
  EXPECT_THAT(first->seen, ElementsAre("head||q=1"));
  EXPECT_THAT(last->seen, ElementsAre("tail|<head>|q=1"));
  EXPECT_EQ("<head>", walk.resultPath);
  EXPECT_EQ(last, walk.parent);
}

TEST(VfsPathTest, OneArgumentFormPassesAnEmptyQuery) {
  boost::shared_ptr<ScriptedStepEntry> entry(new ScriptedStepEntry(0, makeLeaf("end"), ""));
  entry->resolvePath("p");
  EXPECT_THAT(entry->seen, ElementsAre("p||"));
}

// An entry whose step first resolves a path of its own below `inner` (a
// walk inside the walk, on the same thread), then names `next` and leaves
// what follows its part as the rest.
class NestingStepEntry : public BrowsableEntry {
 public:
  NestingStepEntry(FolderPtr inner, std::string innerPath, EntryPtr next)
      : m_inner(inner), m_innerPath(innerPath), m_next(next) {}

  int resolvePathPart(EntryPtr& child, std::string& rest, std::string& resolvedPath,
                      std::string path, std::string /*query*/) override {
    innerResult = m_inner->resolvePath(m_innerPath);
    resolvedPath += "<nest>";
    child = m_next;
    rest = path.substr(path.find('$') + 1);
    return 0;
  }

  EntryPtr innerResult;  // what the walk inside the walk found

 private:
  FolderPtr m_inner;
  std::string m_innerPath;
  EntryPtr m_next;
};

TEST(VfsPathTest, AWalkInsideAStepLeavesTheOuterWalkIntact) {
  // Both paths are longer than a short string, so that each walk keeps its
  // working strings apart from the other's.
  FolderPtr inner = makeFolder("level 0");
  FolderPtr deepest = inner;
  for (int level = 1; level < 8; ++level) {
    FolderPtr below = makeFolder("level " + std::to_string(level));
    deepest->addEntry(below);
    deepest = below;
  }
  deepest->addEntry(makeLeaf("inner leaf"));
  FolderPtr target = makeFolderOf({"a", "b"});
  boost::shared_ptr<NestingStepEntry> nesting(
      new NestingStepEntry(inner, "$0$0$0$0$0$0$0$0", target));
  FolderPtr root = makeFolder("root");
  root->addEntry(nesting);

  Walk walk;
  EXPECT_EQ(0, walk.run(*root, "$0$skip-this-part$1"));
  EXPECT_EQ("b", captionOf(walk.result));
  EXPECT_EQ(target, walk.parent);
  EXPECT_EQ("$0<nest>", walk.resultPath);
  EXPECT_EQ("inner leaf", captionOf(nesting->innerResult));

  nesting->innerResult.reset();
  EXPECT_EQ("b", captionOf(root->resolvePath("$0$skip-this-part$1")));
  EXPECT_EQ("inner leaf", captionOf(nesting->innerResult));
}

TEST(VfsPathTest, UnownedEntryThrowsBadWeakPtrFromEveryForm) {
  ma::VfsFixedEntry leaf(makeItem("leaf"), boost::shared_ptr<ma::VfsUserData>());
  EXPECT_THROW(leaf.resolvePath(""), boost::bad_weak_ptr);
  EXPECT_THROW(leaf.resolvePath("abc"), boost::bad_weak_ptr);
  Walk walk;
  EXPECT_THROW(walk.run(leaf, ""), boost::bad_weak_ptr);
  EXPECT_THROW(walk.run(leaf, "7"), boost::bad_weak_ptr);
  Step step;
  EXPECT_THROW(step.run(leaf, ""), boost::bad_weak_ptr);
  EXPECT_EQ(-38, step.run(leaf, "7"));  // only the empty part needs an owner
}

// --- the fixed folder's step -----------------------------------------------

// The lines that the fixed folder's step wrote.
std::vector<std::string> failureTexts(ma_test::TraceCapture const& capture) {
  std::vector<std::string> texts;
  for (const zel_standin::TraceLine& line : capture.lines()) {
    if (line.text.find(kFixed) != 0 ||
        line.text.find(":resolvePathPart(): ") == std::string::npos) {
      continue;
    }
    EXPECT_EQ(kVfsFailures, line.category) << line.text;
    texts.push_back(line.text);
  }
  return texts;
}

TEST(VfsFixedPathTest, EmptyPartResolvesToTheFolderItself) {
  FolderPtr folder = makeFolderOf({"a"});
  Step step;
  EXPECT_EQ(0, step.run(*folder, ""));
  EXPECT_EQ(folder, step.child);
  EXPECT_EQ("", step.rest);
  EXPECT_EQ("before", step.resolved);
}

TEST(VfsFixedPathTest, PartsTwoAndDollarTwoBothSelectTheThirdChild) {
  FolderPtr folder = makeFolderOf({"a", "b", "c", "d"});
  for (const std::string part : {"2", "$2"}) {
    Step step;
    step.resolved = "";
    EXPECT_EQ(0, step.run(*folder, part)) << part;
    EXPECT_EQ("c", captionOf(step.child)) << part;
    EXPECT_EQ("$2", step.resolved) << part;
    EXPECT_EQ("", step.rest) << part;
  }
}

TEST(VfsFixedPathTest, PartInfoIsAppendedNotReplaced) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  Step step;
  EXPECT_EQ(0, step.run(*folder, "1"));
  EXPECT_EQ("before$1", step.resolved);
}

TEST(VfsFixedPathTest, PartDollarOneDollarAbcSelectsTheSecondChildAndLeavesRestAbc) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  Step step;
  EXPECT_EQ(0, step.run(*folder, "$1$abc"));
  EXPECT_EQ("b", captionOf(step.child));
  EXPECT_EQ("abc", step.rest);
  EXPECT_EQ("before$1", step.resolved);
}

TEST(VfsFixedPathTest, RestIsEverythingAfterTheFirstSeparator) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  Step step;
  EXPECT_EQ(0, step.run(*folder, "0$$2$x"));
  EXPECT_EQ("$2$x", step.rest);
}

TEST(VfsFixedPathTest, PartsDollarAndDollarDollarOneFailWithInvalidPath) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  ma_test::TraceCapture capture;
  Step first;
  EXPECT_EQ(-2, first.run(*folder, "$"));
  Step second;
  EXPECT_EQ(-2, second.run(*folder, "$$1"));
  EXPECT_THAT(failureTexts(capture),
              ElementsAre(IsLocated(kFixed, "resolvePathPart", "Invalid path: \"\".\n"),
                          IsLocated(kFixed, "resolvePathPart", "Invalid path: \"$1\".\n")));
  EXPECT_EQ("before", second.resolved);
  EXPECT_FALSE(second.child);
  EXPECT_EQ("", second.rest);
}

TEST(VfsFixedPathTest, PartXFailsWithNumberErrorTwoAfterTheBaseDeclinesTheQuery) {
  FolderPtr folder = makeFolderOf({"a"});
  ma_test::TraceCapture capture;
  Step step;
  EXPECT_EQ(-2, step.run(*folder, "x"));
  EXPECT_THAT(
      capture.texts(),
      ElementsAre(
          queryLine(367, "Found possible query: x.\n"), queryLine(371, "Unsupported query: x.\n"),
          IsLocated(kFixed, "resolvePathPart", "Error parsing number in path part \"x\" #2.\n")));
  EXPECT_EQ(kVfsFailures, capture.lines().back().category);
  EXPECT_EQ("before", step.resolved);
}

TEST(VfsFixedPathTest, ParseErrorsNameThePartWithoutItsLeadingDollar) {
  FolderPtr folder = makeFolderOf({"a"});
  ma_test::TraceCapture capture;
  Step step;
  EXPECT_EQ(-2, step.run(*folder, "$+$1"));
  EXPECT_THAT(failureTexts(capture),
              ElementsAre(IsLocated(kFixed, "resolvePathPart",
                                    "Error parsing number in path part \"+$1\" #2.\n")));
}

TEST(VfsFixedPathTest, HugeNumberFailsWithNumberErrorOne) {
  FolderPtr folder = makeFolderOf({"a"});
  for (const std::string part :
       {"99999999999", "-99999999999", "2147483648", "99999999999999999999999"}) {
    errno = 0;
    ma_test::TraceCapture capture;
    Step step;
    EXPECT_EQ(-2, step.run(*folder, part)) << part;
    EXPECT_THAT(failureTexts(capture),
                ElementsAre(IsLocated(kFixed, "resolvePathPart",
                                      "Error parsing number in path part \"" + part + "\" #1.\n")))
        << part;
    EXPECT_EQ("before", step.resolved) << part;
  }
}

TEST(VfsFixedPathTest, LargestIndexWithCleanErrnoIsMerelyOutOfRange) {
  FolderPtr folder = makeFolderOf({"a"});
  for (const std::string part : {"2147483647", "-2147483648"}) {
    errno = 0;
    ma_test::TraceCapture capture;
    Step step;
    EXPECT_EQ(-2, step.run(*folder, part)) << part;
    EXPECT_THAT(failureTexts(capture),
                ElementsAre(IsLocated(kFixed, "resolvePathPart",
                                      "Path: \"" + part + "\" with path part \"" + part +
                                          "\" specifies child that is out of range.\n")))
        << part;
    EXPECT_EQ("before$" + part, step.resolved) << part;
  }
}

TEST(VfsFixedPathTest, LeftOverRangeErrorMakesAnIndexAtEitherLimitUnparsable) {
  FolderPtr folder = makeFolderOf({"a"});
  for (const std::string part : {"2147483647", "-2147483648"}) {
    errno = ERANGE;  // left over from something earlier: not cleared
    ma_test::TraceCapture capture;
    Step step;
    EXPECT_EQ(-2, step.run(*folder, part)) << part;
    EXPECT_THAT(failureTexts(capture),
                ElementsAre(IsLocated(kFixed, "resolvePathPart",
                                      "Error parsing number in path part \"" + part + "\" #1.\n")))
        << part;
    EXPECT_EQ("before", step.resolved) << part;  // failed before the index was appended
  }
  errno = ERANGE;
  Step fine;
  EXPECT_EQ(0, fine.run(*folder, "0"));  // other values parse as usual
}

TEST(VfsFixedPathTest, MinusOneAndFiveInAFolderOfFiveAreOutOfRange) {
  FolderPtr folder = makeFolderOf({"a", "b", "c", "d", "e"});
  for (const std::string part : {"-1", "5", "$5$0"}) {
    ma_test::TraceCapture capture;
    Step step;
    step.resolved = "";
    EXPECT_EQ(-2, step.run(*folder, part)) << part;
    const std::string shortened = part[0] == '$' ? part.substr(1) : part;
    const std::string index = shortened.substr(0, shortened.find('$'));
    EXPECT_THAT(failureTexts(capture),
                ElementsAre(IsLocated(kFixed, "resolvePathPart",
                                      "Path: \"" + shortened + "\" with path part \"" + index +
                                          "\" specifies child that is out of range.\n")))
        << part;
    EXPECT_EQ("$" + index, step.resolved) << part;  // appended before the range check
    EXPECT_FALSE(step.child) << part;
    EXPECT_EQ("", step.rest) << part;
  }
}

TEST(VfsFixedPathTest, CharactersAfterTheDigitsAreIgnored) {
  std::vector<std::string> captions;
  for (int i = 0; i < 13; ++i) captions.push_back("c" + std::to_string(i));
  FolderPtr folder = makeFolderOf(captions);
  Step step;
  step.resolved = "";
  EXPECT_EQ(0, step.run(*folder, "12abc"));
  EXPECT_EQ("c12", captionOf(step.child));
  EXPECT_EQ("$12", step.resolved);
  EXPECT_EQ("", step.rest);
}

TEST(VfsFixedPathTest, LeadingBlanksAndASignAreReadAndKeptInThePartInfo) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  Step step;
  step.resolved = "";
  EXPECT_EQ(0, step.run(*folder, "$ \t+1 x$y"));
  EXPECT_EQ("b", captionOf(step.child));
  EXPECT_EQ("$ \t+1", step.resolved);
  EXPECT_EQ("y", step.rest);
  Step minusZero;
  minusZero.resolved = "";
  EXPECT_EQ(0, minusZero.run(*folder, "-0"));
  EXPECT_EQ("a", captionOf(minusZero.child));
  EXPECT_EQ("$-0", minusZero.resolved);
}

TEST(VfsFixedPathTest, PartAcceptedByTheBaseNeverReachesTheFolderSyntax) {
  boost::shared_ptr<vfs_test::QueryableFolder> folder(new vfs_test::QueryableFolder);
  EntryPtr child = makeLeaf("c", "UUID7");
  folder->addEntry(makeLeaf("zero"));
  folder->addEntry(child);
  ma_test::TraceCapture capture;
  Step step;
  EXPECT_EQ(0, step.run(*folder, "UUID7"));
  EXPECT_EQ(child, step.child);
  EXPECT_EQ("before", step.resolved);
  EXPECT_TRUE(failureTexts(capture).empty());
}

TEST(VfsFixedPathTest, UuidQueryOnAPlainFixedFolderFallsThroughToTheIndexSyntax) {
  FolderPtr folder = makeFolder();
  folder->addEntry(makeLeaf("c", "UUID7"));
  ma_test::TraceCapture capture;
  EXPECT_FALSE(folder->resolvePath("UUID7"));
  EXPECT_THAT(failureTexts(capture),
              ElementsAre(IsLocated(kFixed, "resolvePathPart",
                                    "Error parsing number in path part \"UUID7\" #2.\n")));
}

TEST(VfsFixedPathTest, IndexCountsInTheFolderListNotInASortedView) {
  FolderPtr folder = makeFolderOf({"b", "a"});
  boost::shared_ptr<ma::VfsIterator> sorted = folder->getSortedIterator("+dc:title");
  EXPECT_EQ("a", captionOf(sorted->getCurrentChild()));
  EXPECT_EQ("$0", sorted->getCurrentChildPath(""));
  EXPECT_EQ("b", captionOf(folder->resolvePath("$0")));
}

TEST(VfsFixedPathTest, ChildPathFromAnIteratorResolvesBackToTheSameChild) {
  FolderPtr folder = makeFolderOf({"a", "b", "c"});
  boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
  for (EntryPtr child = iterator->getCurrentChild(); child; child = iterator->getCurrentChild()) {
    EXPECT_EQ(child, folder->resolvePath(iterator->getCurrentChildPath("")));
    iterator->advance();
  }
}

TEST(VfsFixedPathTest, EmptyChildPointerAtTheIndexFailsTheWalk) {
  FolderPtr folder = makeFolder();
  folder->addEntry(EntryPtr());
  ma_test::TraceCapture capture;
  EXPECT_FALSE(folder->resolvePath("0"));
  EXPECT_EQ(failedLine("0", "0", 0), capture.texts().back());
}

TEST(VfsFixedPathTest, UnownedFolderResolvesIndexPartsButNotTheEmptyPart) {
  ma::VfsFixedFolder folder(makeItem("unowned"));
  EntryPtr child = makeLeaf("c");
  folder.addEntry(child);
  Step step;
  EXPECT_THROW(step.run(folder, ""), boost::bad_weak_ptr);
  Step index;
  EXPECT_EQ(0, index.run(folder, "0"));
  EXPECT_EQ(child, index.child);
}

}  // namespace
