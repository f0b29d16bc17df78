// The grid's table model: the rows of the row set bound to frmHeaders, read
// cell by cell by bookmark as they are painted (nothing is copied), coloured
// by the screen's cell rule, with two-line headings. Typed cells go to the
// screen's events; what changed comes back as ScreenChanges and becomes the
// model's signals. After the last row comes the insert row, marked "*" in the
// strip of row selectors: it has no record, its cells are empty, and text
// typed into one of them adds a row to the table; the insert row is then
// last again.
#pragma once

#include <QAbstractTableModel>
#include <array>

#include "screens/ScreenView.h"

namespace corvalin {

class frmHeaders;
class Recordset;

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // LineNum, c1..c30, Excluded.
  static constexpr int kColumns = 32;

  GridModel(frmHeaders& screen, QObject* parent);

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

  // The rows that are records of the table, without the insert row.
  int RecordRows() const { return rows_; }
  // Whether a row of the model is the insert row.
  bool IsInsertRow(int row) const { return insertRow_ && row == rows_; }

  // Brings the model up to what the screen says changed.
  void Apply(const ScreenChanges& changes);
  // Forgets the screen (it is being unloaded).
  void Detach();

 private:
  const Recordset* Rows() const;
  int FieldOf(int column) const;

  frmHeaders* screen_;
  int rows_ = 0;
  // A bound row set can take a new row, so the grid shows its insert row.
  bool insertRow_ = false;
  mutable const Recordset* fieldsOf_ = nullptr;
  mutable std::array<int, kColumns> fields_{};
};

}  // namespace corvalin
