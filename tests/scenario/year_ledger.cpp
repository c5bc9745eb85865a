#include "scenario/year_ledger.h"

#include "scenario/require.h"

namespace marlex {
namespace {

/// The files of a row, in the order in which they play.
std::vector<std::string> FilesOf(const std::string& row) {
  std::vector<std::string> files;
  std::size_t start = row.find(' ') + 1;
  while (true) {
    const std::size_t comma = row.find(',', start);
    files.push_back(row.substr(start, comma - start) + ".wav");
    if (comma == std::string::npos) return files;
    start = comma + 1;
  }
}

bool IsChime(const std::string& fileName) {
  return fileName == "ding.wav" || fileName == "dong.wav";
}

/// What became of one row that was due, from its fates in the order in which they came; removes
/// those that it uses.
std::string TakeFate(const std::string& row, std::vector<std::string>& fates) {
  const auto take = [&row, &fates] {
    Require(!fates.empty(), "The record does not say what became of row " + row);
    const std::string fate = fates.front();
    fates.erase(fates.begin());
    return fate;
  };
  std::string fate = take();
  if (fate == "wait") fate = take();
  if (fate == "play") {
    fate = take();
    Require(fate == "end" || fate.starts_with("cut off"), "Row " + row + ": play, " + fate);
    return fate;
  }
  Require(fate.starts_with("lost"), "Row " + row + ": " + fate);
  return fate;
}

}  // namespace

void YearLedger::Post(const std::string& line) {
  const std::size_t category = line.find(' ') + 1;
  const std::string text = line.substr(category);
  if (text.starts_with("record ")) PostRecord(text.substr(7));
  if (text.starts_with("wav play ")) PostSound(text.substr(9));
  if (text.starts_with("song play ")) ++Songs;
}

void YearLedger::CloseDay() {
  Require(Playing.empty() && !CallIsOn, "The day ends in an announcement or a call");
  for (const auto& [row, count] : DueRows) {
    for (int time = 0; time < count; ++time) {
      const std::string fate = TakeFate(row, DayFates[row]);
      ++Rows;
      if (fate == "end") {
        ++Played;
        if (row < "04") ++Nights;
      } else {
        ++Fates[fate];
      }
    }
  }
  for (const auto& [row, fates] : DayFates)
    Require(fates.empty(), "Row " + row + " is not due, or not so often");
  DueRows.clear();
  DayFates.clear();
}

void YearLedger::PostRecord(const std::string& line) {
  if (line.starts_with("call: begin")) CallIsOn = true;
  if (line == "call: speak") ++Calls;
  if (line == "call: end" || line.starts_with("call: cut off")) CallIsOn = false;
  if (!line.starts_with("row ")) return;
  const std::size_t colon = line.find(": ");
  PostFate(line.substr(4, colon - 4), line.substr(colon + 2));
}

void YearLedger::PostFate(const std::string& row, const std::string& fate) {
  if (fate.starts_with("refuse ")) return PostRowsSound(fate.substr(7));
  if (fate.starts_with("play")) {
    Require(Playing.empty(), "Row " + row + " plays over row " + Playing);
    Playing = row;
    Expected = FilesOf(row);
    DayFates[row].push_back("play");
    return;
  }
  if (fate == "end") Require(Expected.empty(), "Row " + row + " ends before " + Expected.front());
  if (row == Playing) Playing.clear();
  DayFates[row].push_back(fate);
}

void YearLedger::PostRowsSound(const std::string& fileName) {
  Require(!Expected.empty() && Expected.front() == fileName,
          "Row " + Playing + " plays " + fileName);
  Expected.erase(Expected.begin());
}

void YearLedger::PostSound(const std::string& fileName) {
  if (!Playing.empty()) return PostRowsSound(fileName);
  Require(CallIsOn && IsChime(fileName), fileName + " sounds, and nothing has asked for it");
}

}  // namespace marlex
