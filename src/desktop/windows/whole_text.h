#pragma once

#include <QEvent>
#include <QString>
#include <QWidget>

namespace marlex {

/// Answers an event that asks for a tool tip with the whole text, if what is painted is not whole.
/// False when it did nothing.
bool ShowWhole(const QEvent& event, QWidget& widget, const QString& text, bool isWhole);

}  // namespace marlex
