#pragma once

#include <QtWidgets>
#include <map>
#include <string>

namespace marlex {

/// The lowest contrasts that a set of windows was painted with, by kind of text, border or mark.
/// All are measured on the painted pixels.
class PaintedContrasts {
 public:
  /// Measures everything that can be seen of a window. Not measured, since they carry nothing: the
  /// outlines of cards and tiles, and the lines between rows, columns and menu items.
  void Measure(QWidget& window, const std::string& where);

  /// Fails for each kind below what it needs: 4.5 for a text, 3 for a border or mark.
  void ExpectEnough() const;

  /// The lowest contrast of a kind such as "text: QLabel zone". 0 if none was measured.
  double Lowest(const std::string& kind) const;

  /// A line for each kind: its lowest contrast and where it was found.
  QString Report() const;

 private:
  struct Found {
    double Ratio;
    double Needed;
    std::string Where;
  };

  void MeasureTexts(QWidget& part);
  void MeasureBorder(QWidget& part);
  void MeasureMarks(QWidget& part);
  void MeasureGlyph(QPushButton& button);
  void MeasureChoice(QAbstractButton& choice);
  void MeasureSlider(QSlider& slider);
  void MeasureScrollBar(QScrollBar& bar);
  void MeasureSelection(QListView& list);
  void MeasureTicks(QMenu& menu);

  QPoint OriginOf(const QWidget& part) const { return part.mapTo(Window, QPoint()); }
  void AddText(const QWidget& part, const QRectF& place, const QString& text);
  void AddMark(const QWidget& part, const QRect& area, const char* which = "");
  void AddEdge(const QWidget& part, const char* which, double contrast);
  void Add(const std::string& kind, double ratio, double needed, const QWidget& part,
           const QString& text = {});

  const QWidget* Window = nullptr;
  QImage Picture;
  std::string Where;
  std::map<std::string, Found> Kinds;
};

}  // namespace marlex
