#include "state/settings_store.h"

#include "platform/directories.h"

namespace marlex {
namespace {

constexpr std::size_t kLongestValue = 1499;  // a buffer of 1500 with the closing NUL
constexpr std::size_t kMostValues = 32767;   // positions in a list are numbers of 16 bits

}  // namespace

std::string SettingsStore::ReadProfileValue(const std::string& section, const std::string& key,
                                            const std::string& file) const {
  return Profiles.GetString(section, key, file, kLongestValue);
}

std::vector<std::string> SettingsStore::ReadNumberedValues(const std::string& section,
                                                           const std::string& keyPrefix,
                                                           const std::string& file) const {
  std::vector<std::string> values = Profiles.GetNumbered(section, keyPrefix, file, kLongestValue);
  if (values.size() > kMostValues) values.resize(kMostValues);
  return values;
}

bool SettingsStore::WriteProfileValue(const std::string& section, const std::string& key,
                                      const std::string& value, const std::string& file) {
  return Profiles.WriteString(section, key, value, file);
}

std::string SettingsStore::TolvoIni() const {
  return JoinPath(ApplicationDirectory(), "Tolvo.ini");
}

}  // namespace marlex
