// The shared header block and table of the list windows.
#include "ui/presentation/data_table.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QStringList>

#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {

// The rows a list shows, as a model over the sounding store: nothing is built per cell up front.
class ReadingsModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void Reset(const std::vector<std::string>& heading, const std::vector<int>& rows,
             std::function<std::string(int row)> depth, std::function<std::string(int row, int column)> cell) {
    beginResetModel();
    heading_.clear();
    for (const std::string& text : heading) heading_ << ToQString(text);
    rows_ = rows;
    depth_ = std::move(depth);
    cell_ = std::move(cell);
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(heading_.size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) return {};
    if (role == Qt::TextAlignmentRole && index.column() > 0) {
      return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    }
    if (role != Qt::DisplayRole) return {};
    const int r = rows_[static_cast<size_t>(index.row())];
    return ToQString(index.column() == 0 ? depth_(r) : cell_(r, index.column() - 1));
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal || section < 0 || section >= heading_.size()) {
      return {};
    }
    return heading_[section];
  }

 private:
  QStringList heading_;
  std::vector<int> rows_;
  std::function<std::string(int)> depth_;
  std::function<std::string(int, int)> cell_;
};

QPlainTextEdit* NewHeaderBox(QWidget* parent) {
  auto* box = Named(new QPlainTextEdit(parent), "lblHeader");
  box->setReadOnly(true);
  box->setLineWrapMode(QPlainTextEdit::NoWrap);
  box->setMaximumHeight(180);
  return box;
}

void ShowHeaderBlock(QPlainTextEdit* box, const std::vector<std::string>& lines) {
  QStringList text;
  for (const std::string& line : lines) text << ToQString(line);
  box->setPlainText(text.join('\n'));
}

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), model_(new ReadingsModel(this)) {
  setObjectName("grdData");
  setModel(model_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  verticalHeader()->hide();
  // Every row is as high as the font: the view need not measure 10000 rows to lay them out.
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void DataGrid::Fill(const std::vector<std::string>& heading, const std::vector<int>& rows,
                    std::function<std::string(int row)> depth, std::function<std::string(int row, int column)> cell,
                    int column_pixels) {
  model_->Reset(heading, rows, std::move(depth), std::move(cell));
  for (int column = 0; column < model_->columnCount(); ++column) setColumnWidth(column, column_pixels);
}

int DataGrid::RowCount() const { return model_->rowCount(); }
int DataGrid::ColumnCount() const { return model_->columnCount(); }

QString DataGrid::CellText(int row, int column) const {
  return model_->data(model_->index(row, column), Qt::DisplayRole).toString();
}

QString DataGrid::HeadingText(int column) const {
  return model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

}  // namespace marlview
