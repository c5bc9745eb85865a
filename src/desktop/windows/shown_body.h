#pragma once

#include <QString>
#include <functional>
#include <string>

namespace marlex {

/// Converts the text of a message box for display. A path, which runs to the end of its line, is
/// one piece from left to right in any language, and is broken nowhere; one that is too long for a
/// line is broken after its separators. Each line runs in its own direction and begins on the left.
QString ShownBody(const std::string& body);

/// The same text, with a path moved to a line of its own where it does not fit after the words
/// before it.
QString WithPathsApart(const QString& shown, const std::function<bool(const QString& line)>& fits);

/// Converts one line for display. It runs in its own direction; the folders of a path follow one
/// another from left to right, even where their names run from right to left.
QString InReadingOrder(const QString& line);

/// The same text without the marks that keep it in order.
QString WithoutMarks(QString shown);

}  // namespace marlex
