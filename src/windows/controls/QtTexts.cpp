// SPDX-License-Identifier: Apache-2.0
#include "controls/QtTexts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>

#include <algorithm>

namespace nira {

namespace {

/// "it", "de", ...; empty when the name ends in nothing that could be a language.
QString LanguageOf(const QString& script) {
  const QString name = QFileInfo(script).completeBaseName().section(u'_', -1).toLower();
  const bool letters =
      std::all_of(name.begin(), name.end(), [](QChar c) { return c >= u'a' && c <= u'z'; });
  return name.size() == 2 && letters ? name : QString();
}

}  // namespace

void QtTexts::Follow(const QString& script) {
  QCoreApplication::removeTranslator(&words_);
  const QString language = LanguageOf(script);
  if (language.isEmpty() || language == QLatin1String("en")) return;
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (words_.load(QStringLiteral("qtbase_") + language, folder)) {
    QCoreApplication::installTranslator(&words_);
  }
}

}  // namespace nira
