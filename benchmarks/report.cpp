#include "report.h"

#include <algorithm>
#include <cstdio>

namespace marlex::bench {
namespace {

constexpr int kNameWidth = 62;
constexpr int kNumberWidth = 10;

std::string Padded(const std::string& text, int width) {
  const int missing = width - static_cast<int>(text.size());
  return missing > 0 ? std::string(static_cast<std::size_t>(missing), ' ') + text : text;
}

/// Three significant digits, but never more than three decimals, and all digits before the point.
std::string Number(double value) {
  const int decimals = value >= 100 ? 0 : value >= 10 ? 1 : value >= 1 ? 2 : 3;
  char text[32];
  snprintf(text, sizeof(text), "%.*f", decimals, value);
  return text;
}

std::string Name(const std::string& name) {
  std::string text = name;
  text.resize(std::max<std::size_t>(text.size(), kNameWidth), ' ');
  return text;
}

std::string Values(const Figure& figure) {
  const auto [least, most] = std::minmax_element(figure.Values.begin(), figure.Values.end());
  return Padded(Number(Median(figure.Values)), kNumberWidth) +
         Padded(Number(*least), kNumberWidth) + Padded(Number(*most), kNumberWidth);
}

std::string Verdict(const Figure& figure) {
  if (!figure.Budget) return "";
  const bool kept = Median(figure.Values) <= *figure.Budget;
  return Padded(Number(*figure.Budget), kNumberWidth) + (kept ? "  kept" : "  MISSED");
}

}  // namespace

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

void Report::Section(const std::string& title) {
  Lines.push_back("");
  Lines.push_back(Name(title) + Padded("median", kNumberWidth) + Padded("least", kNumberWidth) +
                  Padded("most", kNumberWidth) + Padded("budget", kNumberWidth));
  fprintf(stderr, "%s\n", title.c_str());
}

void Report::Add(const Figure& figure) {
  const bool isMeasured = figure.Failure.empty() && !figure.Values.empty();
  Failed = Failed || !isMeasured;
  Lines.push_back(Name("  " + figure.Name) +
                  (isMeasured ? Values(figure) + Verdict(figure) : "failed: " + figure.Failure));
  fprintf(stderr, "%s\n", Lines.back().c_str());
}

void Report::Compare(const Figure& ours, const std::vector<Figure>& others) {
  Add(ours);
  for (const Figure& other : others) {
    Add(other);
    if (ours.Values.empty() || other.Values.empty() || Median(other.Values) <= 0) continue;
    const std::string ratio = Number(Median(ours.Values) / Median(other.Values));
    Lines.back() += "  marlex is " + ratio + " of it";
  }
}

void Report::Print() const {
  for (const std::string& line : Lines) printf("%s\n", line.c_str());
}

}  // namespace marlex::bench
