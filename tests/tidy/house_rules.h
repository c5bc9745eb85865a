#pragma once

#include <map>
#include <string>
#include <vector>

namespace marlex {

/// Source files by their path from the root of the project, each with its lines.
using SourceTree = std::map<std::string, std::vector<std::string>>;

/// All .h and .cpp files below a directory, such as "src", of the project at `root`.
SourceTree ReadSources(const std::string& root, const std::string& directory);

/// Every rule returns its complaints, one per line: "<file>:<line>: <what is wrong and what to
/// do>". An empty text means no complaint.

/// Includes point to the same folder or to one on a lower floor.
std::string ClimbingIncludes(const SourceTree& sources);

/// No two modules, each a .h and its .cpp, include each other, directly or indirectly.
std::string CircularIncludes(const SourceTree& sources);

/// The system uses no real PC: neither its libraries nor its files, clocks and threads.
std::string ForeignWords(const SourceTree& sources);

/// Lines have at most a hundred characters, files at most five hundred lines.
std::string Oversizes(const SourceTree& sources);

/// Titles of tests have fewer than sixty characters.
std::string LongTitles(const SourceTree& sources);

/// A suppression of clang-tidy names its check and says why: "NOLINT(check): reason".
std::string BareSuppressions(const SourceTree& sources);

/// Every header begins with its include guard.
std::string UnguardedHeaders(const SourceTree& sources);

}  // namespace marlex
