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

/// Median; of an even number the mean of the middle two. There must be a value.
double Median(std::vector<double> values);

/// The table that the benchmark ends with. What is added is told at once, too.
class Report {
 public:
  void Section(const std::string& title);
  void Add(const Figure& figure);

  /// The same measure of the program and of others, which the program's median is divided by.
  void Compare(const Figure& ours, const std::vector<Figure>& others);

  void Print() const;

  /// Whether a measure failed.
  bool HasFailures() const { return Failed; }

 private:
  std::vector<std::string> Lines;
  bool Failed = false;
};

}  // namespace marlex::bench
