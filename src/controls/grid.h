#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/widgets.h"

namespace marlex {

enum class GridAlignment { Left, Centre };

/// A table of texts with one fixed row, the heading, as row 0. Cells keep their text and colours
/// whether or not they are visible. Rows and columns count from 0; one out of range is a
/// `RuntimeFailure`. Heights and widths are in twips. The design has only an empty heading row, and
/// columns of width 0.
class Grid : public VisualControl {
 public:
  static constexpr int kColumns = 5;
  static constexpr int kDefaultRowHeight = 240;

  // For the view.
  int MarkColumn = 0;  // its coloured cells carry a mark, and its double-click is the row's
  int NarrowColumn = kColumns - 1;  // no wider than its texts

  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::Grid; }
  void ResetToDesign() override;

  int Rows() const { return static_cast<int>(RowData.size()); }

  /// Adds empty rows with black text on white, at the default height, or removes rows with
  /// everything in them.
  void SetRows(int rows);

  const std::string& TextMatrix(int row, int column) const { return At(row, column).Text; }
  void SetTextMatrix(int row, int column, const std::string& text);

  int RowHeight(int row) const { return RowAt(row).Height; }  // 0 for a hidden row
  void SetRowHeight(int row, int height);
  int ColWidth(int column) const { return ColumnAt(column).Width; }
  void SetColWidth(int column, int width);
  GridAlignment ColAlignment(int column) const { return ColumnAt(column).Alignment; }
  void SetColAlignment(int column, GridAlignment alignment);

  // The current cell: the one last clicked by the operator or set by code.
  int Row() const { return CurrentRow; }
  int Col() const { return CurrentCol; }
  void SetRow(int row);
  void SetCol(int column);
  Color CellBackColor() const { return At(CurrentRow, CurrentCol).BackColor; }
  Color CellForeColor() const { return At(CurrentRow, CurrentCol).ForeColor; }
  void SetCellColors(Color back, Color text);

  Color BackColorAt(int row, int column) const { return At(row, column).BackColor; }
  Color ForeColorAt(int row, int column) const { return At(row, column).ForeColor; }

  int TopRow() const { return FirstVisibleRow; }
  void SetTopRow(int row);

  /// Sorts the rows below the heading by the text in the current column, case-sensitive and
  /// ascending; rows with equal text keep their order.
  void Sort();

  Property<Color> BackColorFixed{*this, kButtonFace};
  Property<Color> BackColorBkg{*this, kButtonFace};

  std::function<void()> OnDblClick;

 private:
  struct Cell {
    std::string Text;
    Color BackColor = kWhite;
    Color ForeColor = kBlack;
  };
  struct RowRecord {
    std::vector<Cell> Cells = std::vector<Cell>(kColumns);
    int Height = kDefaultRowHeight;
  };
  struct Column {
    int Width = 0;
    GridAlignment Alignment = GridAlignment::Left;
  };

  const RowRecord& RowAt(int row) const;
  const Cell& At(int row, int column) const;
  Cell& At(int row, int column);
  const Column& ColumnAt(int column) const;

  std::vector<RowRecord> RowData = std::vector<RowRecord>(1);
  std::vector<Column> ColumnData = std::vector<Column>(kColumns);
  int CurrentRow = 0;
  int CurrentCol = 0;
  int FirstVisibleRow = 1;
};

}  // namespace marlex
