#include "core/RuntimeError.h"
#include "core/Startup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QMap>

using namespace core;

namespace {

// A settings store in memory that records every read and write.
class RecordingSettings : public SettingsStore {
public:
  QMap<QString, QString> Values;
  QStringList Reads;
  QStringList Writes;

  QString GetSetting(const QString& section, const QString& key, const QString& fallback) override {
    Reads << section + "/" + key;
    return Values.value(section + "/" + key, fallback);
  }
  void SaveSetting(const QString& section, const QString& key, const QString& value) override {
    Writes << section + "/" + key + "=" + value;
    Values[section + "/" + key] = value;
  }
};

struct Recorder {
  QStringList Events;
  StartupHooks Hooks(SharedState& state) {
    return {[this, &state] { Events << (state.FunctionTokens[18] == "sin" ? "show" : "show before tables"); },
            [this, &state](const QString& path) {
              Events << "load " + path;
              state.ProjectChanged = true;  // the reader changes rows; start-up clears it after
            }};
  }
};

}  // namespace

TEST(Startup, AQuotedPathWithBlanksLoadsThatPath) {
  SharedState state;
  RecordingSettings settings;
  Recorder recorder;
  Main(state, settings, "\"/home/ann/My Graphs/circle.qlp\"", recorder.Hooks(state));
  EXPECT_EQ(state.ProjectPath, "/home/ann/My Graphs/circle.qlp");
  EXPECT_EQ(recorder.Events, QStringList({"show", "load /home/ann/My Graphs/circle.qlp"}));
  EXPECT_FALSE(state.ProjectChanged);
}

TEST(Startup, TwoPathsAreOnePathWithABlank) {
  SharedState state;
  RecordingSettings settings;
  Recorder recorder;
  Main(state, settings, "a.qlp b.qlp", recorder.Hooks(state));
  EXPECT_EQ(state.ProjectPath, "a.qlp b.qlp");
  EXPECT_EQ(recorder.Events.last(), "load a.qlp b.qlp");
}

TEST(Startup, AnEmptyCommandLineShowsTheFormWithoutAProject) {
  SharedState state;
  state.ProjectPath = "left over";
  state.ProjectChanged = true;
  RecordingSettings settings;
  Recorder recorder;
  Main(state, settings, "", recorder.Hooks(state));
  EXPECT_EQ(recorder.Events, QStringList({"show"}));
  EXPECT_EQ(state.ProjectPath, "");
  EXPECT_FALSE(state.ProjectChanged);
}

TEST(Startup, WithoutAdminTheRevisionIsNeitherReadNorWritten) {
  for (const char* admin : {"", "False", "false", "0"}) {
    SharedState state;
    RecordingSettings settings;
    if (*admin) settings.Values["Options/Admin"] = admin;
    Main(state, settings, "", {});
    EXPECT_EQ(settings.Reads, QStringList({"Options/Admin"})) << admin;
    EXPECT_TRUE(settings.Writes.isEmpty()) << admin;
  }
}

TEST(Startup, AdminCountsTheBuildNumberUp) {
  SharedState state;
  RecordingSettings settings;
  settings.Values["Options/Admin"] = "True";
  Main(state, settings, "", {});
  EXPECT_EQ(settings.Writes, QStringList({"Options/Revision=12001"}));
  Main(state, settings, "", {});
  EXPECT_EQ(settings.Values["Options/Revision"], "12002");
}

TEST(Startup, ANonNumericRevisionStaysAsItIs) {
  SharedState state;
  RecordingSettings settings;
  settings.Values["Options/Admin"] = "True";
  settings.Values["Options/Revision"] = "twelve";
  Main(state, settings, "", {});
  EXPECT_TRUE(settings.Writes.isEmpty());
  EXPECT_EQ(settings.Values["Options/Revision"], "twelve");
  EXPECT_EQ(state.FunctionTokens[44], "theta");  // the next steps still ran
}

TEST(Startup, AFailingLoadIsIgnoredAndTheProjectStartsUnchanged) {
  SharedState state;
  RecordingSettings settings;
  StartupHooks hooks{[] {}, [&](const QString&) {
                       state.ProjectChanged = true;
                       throw RuntimeError(53, "File not found");
                     }};
  Main(state, settings, "missing.qlp", hooks);
  EXPECT_EQ(state.ProjectPath, "missing.qlp");
  EXPECT_FALSE(state.ProjectChanged);
}

TEST(Startup, CommandLineJoinsTheArguments) {
  EXPECT_EQ(CommandLineOf({"quillograph"}), "");
  EXPECT_EQ(CommandLineOf({"quillograph", "/tmp/My", "Graphs.qlp"}), "/tmp/My Graphs.qlp");
}
