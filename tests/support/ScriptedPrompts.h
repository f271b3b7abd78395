// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Prompts.h"

#include <QStringList>
#include <QTest>

#include <algorithm>
#include <deque>
#include <optional>
#include <vector>

namespace nira {

/// Prompts that answer as they were told in advance and keep what was shown. A box without an
/// answer fails the test, and so does an answer that the box does not offer or that no box took.
class ScriptedPrompts : public Prompts {
 public:
  struct Box {
    QString text;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    QString title;

    /// "Critical Ok: text", with the title before the text when there is one.
    QString Described() const {
      static const char* const icons[] = {"None", "Information", "Question", "Exclamation",
                                          "Critical"};
      static const char* const sets[] = {"Ok",          "OkCancel", "YesNo",    "YesNoCancel",
                                         "RetryCancel", "NoYes",    "CancelOk", "CancelYesNo"};
      const QString head = QString::fromLatin1(icons[static_cast<int>(icon)]) + u' ' +
                           QString::fromLatin1(sets[static_cast<int>(buttons)]) + u": ";
      return title.isEmpty() ? QString(head + text) : QString(head + u'[' + title + u"] " + text);
    }
  };
  struct Input {
    QString prompt;
    QString preset;
    QString title;
  };

  ~ScriptedPrompts() override {
    if (QTest::currentTestFailed()) return;
    if (!answers_.empty() || !lines_.empty()) Fail(QStringLiteral("fewer boxes than scripted"));
  }

  /// The answer to the next message box that has none yet.
  void Expect(Answer answer = Answer::Ok) { answers_.push_back(answer); }
  /// The line typed into the next input box that has none yet; none = Cancel.
  void ExpectInput(const std::optional<QString>& line) { lines_.push_back(line); }
  /// From now on boxes without an answer are in order: yes or OK, otherwise no or Cancel.
  void AnswerEverything(bool yes) { everything_ = yes; }

  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    boxes.push_back({text, buttons, icon, title});
    const std::vector<Answer> offered = Offered(buttons);
    if (answers_.empty() && everything_) return *everything_ ? offered.front() : offered.back();
    if (answers_.empty()) {
      Fail(u"unscripted box: " + boxes.back().Described());
      return offered.back();
    }
    const Answer answer = answers_.front();
    answers_.pop_front();
    if (std::find(offered.begin(), offered.end(), answer) == offered.end()) {
      Fail(u"no such button: " + boxes.back().Described());
    }
    return answer;
  }

  std::optional<QString> InputBox(const QString& prompt, const QString& preset,
                                  const QString& title) override {
    inputs.push_back({prompt, preset, title});
    if (lines_.empty()) {
      if (!everything_) Fail(u"unscripted input box: " + prompt);
      return std::nullopt;
    }
    const std::optional<QString> line = lines_.front();
    lines_.pop_front();
    return line;
  }

  /// All message boxes so far, described.
  QStringList Shown() const {
    QStringList shown;
    for (const Box& box : boxes) shown.append(box.Described());
    return shown;
  }

  std::vector<Box> boxes;
  std::vector<Input> inputs;

 private:
  static std::vector<Answer> Offered(Buttons buttons) {
    using enum Answer;
    static const std::vector<Answer> sets[] = {
        {Ok},      {Ok, Cancel}, {Yes, No},        {Yes, No, Cancel}, {Retry, Cancel},
        {Yes, No}, {Ok, Cancel}, {Yes, No, Cancel}};
    return sets[static_cast<int>(buttons)];
  }

  static void Fail(const QString& message) {
    QTest::qFail(message.toLocal8Bit().constData(), __FILE__, __LINE__);
  }

  std::deque<Answer> answers_;
  std::deque<std::optional<QString>> lines_;
  std::optional<bool> everything_;
};

}  // namespace nira
