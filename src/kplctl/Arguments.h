// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace nira {

/// An option of a command.
struct Option {
  enum class Kind {
    Flag,    ///< takes no value
    Number,  ///< takes a whole number of 32 bits
    Text,    ///< takes a value that is not empty
  };
  const char* name;  ///< behind two dashes
  Kind kind = Kind::Flag;
  const char* value = "";   ///< what the usage calls its value
  const char* help = "";    ///< one line of the usage
  const char* letter = "";  ///< the same behind one dash, empty when there is none
};

/// What stands behind a command's name: its words (file names and the like) and its options.
class Arguments {
 public:
  QStringList Words;

  bool Has(const char* option) const { return options_.contains(QString::fromLatin1(option)); }
  /// The value of an option of kind Number; none when it was not given.
  std::optional<int> Number(const char* option) const;
  /// The last value of an option of kind Text; empty when it was not given.
  QString Text(const char* option) const { return Texts(option).value(Texts(option).size() - 1); }
  /// The values of an option that was given several times, in their order.
  QStringList Texts(const char* option) const {
    return options_.value(QString::fromLatin1(option));
  }

  /// Why the number of an option is not within 1..`most`; empty when it is, or when none was given.
  QString OutOfRange(const char* option, int most) const;

  void SetOption(const char* option, const QString& value) {
    options_[QString::fromLatin1(option)].append(value);
  }

 private:
  QHash<QString, QStringList> options_;
};

}  // namespace nira
