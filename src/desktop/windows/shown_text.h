#pragma once

#include <QString>
#include <string>

namespace marlex {

/// Text of the system as the screen takes it: a carriage return, alone or with a line feed, is a
/// new line.
QString ShownText(const std::string& text);

/// The same for keys, menus and frames, where a single '&' would underline the letter behind it.
QString ShownCaption(const std::string& text);

/// The same for a tool tip, which would take a text that looks like HTML for HTML.
QString ShownToolTip(const std::string& text);

}  // namespace marlex
