#include "desktop/GridModel.h"

#include <QApplication>
#include <algorithm>
#include <QColor>

#include "desktop/Latin1Text.h"
#include "desktop/QtToolkit.h"
#include "desktop/ScreenWindow.h"
#include "screens/frmHeaders.h"
#include "columns/Vocabulary.h"

namespace corvalin {

GridModel::GridModel(frmHeaders& screen, QObject* parent) : QAbstractTableModel(parent), screen_(&screen) {}

const Recordset* GridModel::Rows() const { return screen_ != nullptr ? screen_->Adodc1.Recordset.get() : nullptr; }

int GridModel::FieldOf(int column) const {
  const Recordset* rows = Rows();
  if (fieldsOf_ != rows) {
    // Found once per bound row set, not per cell.
    for (int c = 0; c < kColumns; ++c) {
      const std::string name = c == 0 ? "LineNum" : c == frmHeaders::kExcludedColumn ? "Excluded" : "c" + std::to_string(c);
      fields_[static_cast<std::size_t>(c)] = rows->FieldIndex(name);
    }
    fieldsOf_ = rows;
  }
  return fields_[static_cast<std::size_t>(column)];
}

int GridModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return insertRow_ ? rows_ + 1 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const Recordset* rows = Rows();
  if (!index.isValid() || rows == nullptr) return {};
  if (IsInsertRow(index.row())) {
    // Empty cells to type into; nothing is coloured, there is nothing yet.
    if (role == Qt::DisplayRole || role == Qt::EditRole) return QString();
    return {};
  }
  if (index.row() >= rows_ || index.row() >= rows->RecordCount()) return {};
  if (role == Qt::DisplayRole || role == Qt::EditRole) {
    const int field = FieldOf(index.column());
    if (field < 0) return QString();
    const auto cell = rows->CellAt(index.row(), field);
    if (!cell) return QString();
    return QString::fromLatin1(cell->data(), static_cast<qsizetype>(cell->size()));
  }
  if (role == Qt::BackgroundRole) {
    // The background, so that the text in its usual colour stays readable
    // on both.
    switch (screen_->CellColour(index.column(), index.row())) {
      case kCellColourInvalid: return QColor(255, 0, 0);
      case kCellColourExcluded: return QColor(255, 255, 0);
      default: return {};
    }
  }
  return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || screen_ == nullptr) return {};
  if (orientation == Qt::Vertical) return IsInsertRow(section) ? QStringLiteral("*") : QString();
  if (section < 0 || section >= kColumns) return {};
  // Type over units.
  return ToQt(screen_->ColumnCaption[static_cast<std::size_t>(section)]);
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  // LineNum is the grid's to number, on the insert row too.
  if (index.column() >= 1 && index.column() <= kHeadingColumns) flags |= Qt::ItemIsEditable;
  return flags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || screen_ == nullptr || !index.isValid()) return false;
  if (index.column() < 1 || index.column() > kHeadingColumns) return false;
  const auto bytes = Latin1FromQt(value.toString());
  if (!bytes) {
    // A character with no single byte cannot go into the file.
    QApplication::beep();
    return false;
  }
  frmHeaders& screen = *screen_;
  const int row = index.row();
  const int column = index.column();
  if (IsInsertRow(row)) {
    // The new row comes in before the insert row, holding the text.
    const int records = rows_;
    ScreenWindow::Fire([&] { screen.AddGridRowTyped(column, *bytes); });
    return rows_ > records;
  }
  ScreenWindow::Fire([&] { screen.SetCellText(row, column, *bytes); });
  return true;
}

void GridModel::Apply(const ScreenChanges& changes) {
  const Recordset* rows = Rows();
  const int count = rows != nullptr ? static_cast<int>(rows->RecordCount()) : 0;
  if (changes.rowsReset || count < rows_ || insertRow_ != (rows != nullptr)) {
    beginResetModel();
    fieldsOf_ = nullptr;
    rows_ = count;
    insertRow_ = rows != nullptr;
    endResetModel();
    return;
  }
  if (!changes.insertedRows.Empty() || count > rows_) {
    // Added rows go in before the insert row, which stays last.
    const int first = rows_;
    beginInsertRows(QModelIndex(), first, count - 1);
    rows_ = count;
    endInsertRows();
  }
  if (!changes.cells.Empty() && rows_ > 0) {
    const int first = static_cast<int>(std::min<long>(changes.cells.first, rows_ - 1));
    const int last = static_cast<int>(std::min<long>(changes.cells.last, rows_ - 1));
    emit dataChanged(index(first, 0), index(last, kColumns - 1));
  }
  if (changes.headings) emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

void GridModel::Detach() {
  beginResetModel();
  screen_ = nullptr;
  rows_ = 0;
  insertRow_ = false;
  fieldsOf_ = nullptr;
  endResetModel();
}

}  // namespace corvalin
