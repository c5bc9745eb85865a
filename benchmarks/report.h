#pragma once

#include <optional>
#include <string>
#include <vector>

namespace marlex::bench {

/// One measure: its name with the unit, and a value for each repetition.
struct Figure {
  std::string Name;
  std::vector<double> Values;
  std::optional<double> Budget = std::nullopt;  // the most that the median may be
  std::string Failure = "";                     // why there is no value
};

/// Median; for an even number of values, the mean of the middle two. There must be at least one
/// value.
double Median(std::vector<double> values);

/// The table that the benchmark ends with. Everything added is also printed immediately.
class Report {
 public:
  void Section(const std::string& title);
  void Add(const Figure& figure);

  /// The same measure for the program and for others, whose medians are shown relative to the
  /// program's.
  void Compare(const Figure& ours, const std::vector<Figure>& others);

  void Print() const;

  /// Whether a measurement failed.
  bool HasFailures() const { return Failed; }

 private:
  std::vector<std::string> Lines;
  bool Failed = false;
};

}  // namespace marlex::bench
