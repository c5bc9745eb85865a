#include "tools/machine.h"

#include <stdlib.h>
#include <sys/wait.h>

#include <fstream>
#include <sstream>

#include "places.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPackageManager = R"(
echo "apt-get $*" >> "$MACHINE/log"
if [[ -e $MACHINE/offline && $* != *" -s "* ]]; then
  echo "E: Failed to fetch: Temporary failure resolving" >&2
  exit 100
fi
[[ $1 == download ]] && touch "${*: -1}_1.0.deb"
[[ $* == *install* ]] || exit 0
for package in "$@"; do
  [[ -e $MACHINE/unknown/$package ]] && echo "E: Unable to locate package $package" && exit 100
  [[ $* != *" -s "* && $* != *--download-only* && $package != -* && $package != install ]] &&
    touch "$MACHINE/has/$package"
  [[ -e $MACHINE/conflicts/$package ]] || continue
  for other in $(< "$MACHINE/conflicts/$package"); do
    [[ -e $MACHINE/has/$other ]] || continue
    [[ $* == *--no-remove* ]] && echo "E: Packages need to be removed" && exit 100
    echo "Remv $other [1.0] [other stuff]"
  done
done
)";

constexpr const char* kPackageQuery = R"(
[[ -e $MACHINE/has/${*: -1} ]] && echo -n installed
)";

constexpr const char* kTools[] = {"bash",     "cat", "cp",      "dirname", "env", "grep",  "head",
                                  "id",       "ln",  "ls",      "mkdir",   "mv",  "paste", "rm",
                                  "realpath", "sed", "setpriv", "sleep",   "tee", "touch", "chmod"};

}  // namespace

void Machine::SetUp() {
  std::string pattern = (fs::temp_directory_path() / "machine_XXXXXX").string();
  Root = mkdtemp(pattern.data());
  for (const char* folder : {"bin", "tools", "has", "unknown", "conflicts", "project"})
    fs::create_directories(Root / folder);
  for (const char* tool : kTools)
    fs::create_symlink(fs::path("/usr/bin") / tool, Root / "tools" / tool);
  Program("apt-get", kPackageManager);
  Program("dpkg-query", kPackageQuery);
  Program("sudo", "exec \"$@\"\n");
}

/// A process that a script has left running may still be writing there.
void Machine::TearDown() {
  std::error_code busy;
  do fs::remove_all(Root, busy);
  while (fs::exists(Root));
}

void Machine::Write(const std::string& name, const std::string& content) const {
  fs::create_directories((Root / name).parent_path());
  std::ofstream(Root / name) << content;
}

std::string Machine::Read(const std::string& name) const {
  std::ostringstream content;
  content << std::ifstream(Root / name).rdbuf();
  return content.str();
}

void Machine::Program(const std::string& name, const std::string& script) const {
  const std::string place = name.find('/') == std::string::npos ? "bin/" + name : name;
  Write(place, "#!/bin/bash\n" + script);
  fs::permissions(Root / place, fs::perms::owner_all);
}

void Machine::Take(const std::string& script) const {
  const fs::path place = Root / "project" / script;
  fs::create_directories(place.parent_path());
  fs::copy(fs::path(MARLEX_SOURCE_DIR) / script, place, fs::copy_options::overwrite_existing);
}

void Machine::Has(const std::vector<std::string>& packages) const {
  for (const std::string& package : packages) Write("has/" + package, "");
}

bool Machine::IsThere(const std::string& package) const {
  return fs::exists(Root / "has" / package);
}

int Machine::Run(const std::string& command, const std::string& variables) {
  const std::string place = Root.string();
  const std::string whole = "cd " + place + "/project && env -i MACHINE=" + place +
                            " HOME=" + place + " PATH=" + place + "/bin:" + place + "/tools " +
                            variables + " " + command + " > " + place + "/said 2>&1";
  const int status = std::system(whole.c_str());
  Said = Read("said");
  return WEXITSTATUS(status);
}

}  // namespace marlex
