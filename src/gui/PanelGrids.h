#pragma once

// The read-only grids the document panels show their content in, and their report tables.

#include <QString>

#include <string>
#include <vector>

class QGroupBox;
class QTableWidget;
class QWidget;

namespace koral::grids {

using Rows = std::vector<std::vector<std::string>>;

QTableWidget* create(QWidget* parent, const char* name, int rows, const QStringList& headers);
// Rows are numbered from `firstNumber`, as the radio counts them.
void fill(QTableWidget* table, const Rows& rows, int firstNumber);
QGroupBox* boxed(QWidget* parent, const QString& title, QWidget* content);
// The grid as an HTML table under a heading, for the printed report.
QString htmlTable(const QString& title, const QTableWidget* table);

} // namespace koral::grids
