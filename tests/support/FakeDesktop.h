#pragma once

#include "core/SettingsStore.h"
#include "platform/ColorChooser.h"
#include "platform/Desktop.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"

#include <QColor>
#include <QImage>
#include <QMap>
#include <QString>

#include <deque>
#include <optional>
#include <vector>

// Message boxes that a test answers: each box shown is recorded, and answered by the next answer
// queued, or by the first button (Ok, Yes) when none is queued.
class RecordingBoxes : public platform::MessageBoxes {
public:
  struct Box {
    QString Text;
    Buttons Shown;
    Icon Kind;
    QString Title;
  };

  Answer Show(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    boxes.push_back({text, buttons, icon, title});
    if (!answers.empty()) {
      const Answer answer = answers.front();
      answers.pop_front();
      return answer;
    }
    return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::Yes : Answer::Ok;
  }

  std::vector<Box> boxes;
  std::deque<Answer> answers;
};

// The colour dialog, answered by the test: the next colour queued, or cancelled.
class ScriptedColors : public platform::ColorChooser {
public:
  std::optional<QColor> Choose(const QColor& current, const QString& title) override {
    asked.push_back({current, title});
    if (colors.empty()) return std::nullopt;
    const QColor color = colors.front();
    colors.pop_front();
    return color;
  }

  std::deque<QColor> colors;
  std::vector<std::pair<QColor, QString>> asked;
};

// A settings store in memory, with a record of what was read and written.
class MemorySettings : public core::SettingsStore {
public:
  QString GetSetting(const QString& section, const QString& key, const QString& fallback) override {
    reads.push_back(section + u'/' + key);
    return values.value(section + u'/' + key, fallback);
  }
  void SaveSetting(const QString& section, const QString& key, const QString& value) override {
    values[section + u'/' + key] = value;
    writes.push_back(section + u'/' + key);
  }

  QMap<QString, QString> values;
  std::vector<QString> reads, writes;
};

// The file dialogs, answered by the test: the next name queued, or cancelled. Each dialog shown is
// recorded with its title, filter and the name it started from.
class ScriptedFiles : public platform::FileDialogs {
public:
  struct Dialog {
    QString Title, Filter, Initial;
    bool Save;
  };
  std::optional<QString> SaveFileName(const QString& title, const QString& filter, const QString& initial) override {
    return Answer({title, filter, initial, true});
  }
  std::optional<QString> OpenFileName(const QString& title, const QString& filter, const QString& initial) override {
    return Answer({title, filter, initial, false});
  }

  std::deque<std::optional<QString>> names;
  std::vector<Dialog> shown;

private:
  std::optional<QString> Answer(Dialog dialog) {
    shown.push_back(std::move(dialog));
    if (names.empty()) return std::nullopt;
    // Taken apart so that an optimising compiler does not think the name unset.
    const bool cancelled = !names.front().has_value();
    const QString name = names.front().value_or(QString());
    names.pop_front();
    if (cancelled) return std::nullopt;
    return name;
  }
};

// The rest of the desktop, recorded: programs started, addresses opened, the clipboard in memory,
// the font dialog answered by the test.
class RecordingDesktop : public platform::Desktop {
public:
  std::optional<QString> StartProgram(const QString& path, Window window) override {
    started.push_back({path, window});
    return startError;
  }
  bool OpenAddress(const QString& address) override {
    opened.push_back(address);
    return opens;
  }
  QString ClipboardText() override { return clipboard; }
  void SetClipboardText(const QString& text) override { clipboard = text; }
  void ClearClipboard() override { clipboard.clear(), ++clears; }
  void SetClipboardImage(const QImage& image) override { clipboardImage = image; }
  void SetClipboardData(std::unique_ptr<QMimeData> data) override {
    clipboard = data->text();
    clipboardFormats.clear();
    for (const QString& format : data->formats()) clipboardFormats[format] = QString::fromUtf8(data->data(format));
  }
  std::optional<QFont> ChooseFont(const QFont& current) override {
    fontAsked.push_back(current);
    return font;
  }
  bool PrefersDark() override { return prefersDark; }
  void ApplyLook(bool dark) override { looks.push_back(dark); }

  std::vector<std::pair<QString, Window>> started;
  std::optional<QString> startError;
  std::vector<QString> opened;
  bool opens = true;  // false: the desktop has no program for what it is asked to open
  QString clipboard;
  QImage clipboardImage;
  QMap<QString, QString> clipboardFormats;  // each form of the last text put there in several
  int clears = 0;
  std::optional<QFont> font;
  std::vector<QFont> fontAsked;
  bool prefersDark = false;  // what the desktop asks of a program that follows it
  std::vector<bool> looks;   // each look put on the windows, true for dark
};
