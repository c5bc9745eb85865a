#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "amplifier/stand_in.h"

class Ui_frmAmplifier;

namespace marlex {

/// The window of the amplifier's stand-in: lamps for its zones, keys for its status, and the bytes
/// on its line.
class AmplifierWindow : public QWidget {
 public:
  explicit AmplifierWindow(StandIn& amplifier);
  ~AmplifierWindow() override;

  /// Shows what the amplifier knows now. Call after each change.
  void ShowAmplifier();

  /// Says below the list where the line leads, and whether a desk has it open.
  void ShowLine(const std::string& text);

 private:
  struct Key {
    QPushButton* Button;
    int Status;
  };

  void ShowZones();
  void ShowStatus();
  void ShowNewBytes();
  void AddByte(const LineNote& note);

  StandIn& Amplifier;
  const std::unique_ptr<Ui_frmAmplifier> Widgets;
  std::vector<QLabel*> Lamps;
  std::vector<Key> Keys;
  std::size_t BytesShown = 0;  // of all that there have been
};

}  // namespace marlex
