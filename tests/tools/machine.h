#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace marlex {

/// A machine whose package manager is simulated, with a project on it. It has the plain tools of a
/// shell, and what the test puts into `bin`.
class Machine : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Writes a file below the machine's root, and creates its folder.
  void Write(const std::string& name, const std::string& content) const;
  std::string Read(const std::string& name) const;

  /// Adds a program to the machine, as a shell script; "$MACHINE" is the machine's root.
  void Program(const std::string& name, const std::string& script) const;

  /// Copies one of our scripts into the machine's project.
  void Take(const std::string& script) const;

  /// Declares packages as installed, and asks whether one is.
  void Has(const std::vector<std::string>& packages) const;
  bool IsThere(const std::string& package) const;

  /// Runs a command in the project, optionally with additional variables. Returns its exit code;
  /// `Said` holds its output.
  int Run(const std::string& command, const std::string& variables = "");

  bool Says(const std::string& text) const { return Said.find(text) != std::string::npos; }
  bool Logged(const std::string& text) const { return Read("log").find(text) != std::string::npos; }

  std::filesystem::path Root;
  std::string Said;
};

}  // namespace marlex
