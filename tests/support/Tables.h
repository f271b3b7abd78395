// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTest>

#include <initializer_list>

namespace nira {

/// A table of texts: each row its name and a text for every column.
inline void TextTable(std::initializer_list<const char*> columns,
                      std::initializer_list<std::initializer_list<const char*>> rows) {
  for (const char* column : columns) QTest::addColumn<QString>(column);
  for (const auto& row : rows) {
    if (row.size() != columns.size() + 1) qFatal("a row of %s is too short", *row.begin());
    QTestData& data = QTest::newRow(*row.begin());
    for (auto text = row.begin() + 1; text != row.end(); ++text) data << QString::fromUtf8(*text);
  }
}

}  // namespace nira
