#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace marlex {

/// A machine whose package manager we are, with a project on it. It has the plain tools of a shell,
/// and what the test puts into `bin`.
class Machine : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// A file below the machine's root, with its folder.
  void Write(const std::string& name, const std::string& content) const;
  std::string Read(const std::string& name) const;

  /// A program of the machine, as a shell script; "$MACHINE" is the machine's root.
  void Program(const std::string& name, const std::string& script) const;

  /// A script of ours in the machine's project.
  void Take(const std::string& script) const;

  /// Packages that are installed, and whether one is.
  void Has(const std::vector<std::string>& packages) const;
  bool IsThere(const std::string& package) const;

  /// Runs a command in the project, with more variables perhaps. Its exit code; `Said` is what it
  /// wrote.
  int Run(const std::string& command, const std::string& variables = "");

  bool Says(const std::string& text) const { return Said.find(text) != std::string::npos; }
  bool Logged(const std::string& text) const { return Read("log").find(text) != std::string::npos; }

  std::filesystem::path Root;
  std::string Said;
};

}  // namespace marlex
