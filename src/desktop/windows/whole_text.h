#pragma once

#include <QEvent>
#include <QString>
#include <QWidget>

namespace marlex {

/// Answers an event that asks for a tool tip with the whole text, where what is painted is not
/// whole. False when there is nothing to add.
bool ShowWhole(const QEvent& event, QWidget& widget, const QString& text, bool isWhole);

}  // namespace marlex
