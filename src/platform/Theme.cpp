#include "Theme.h"

#include "DataFolder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QIcon>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace platform {

namespace {

// Text colours of the light sheet and what reads as well on the dark surfaces.
const QHash<QString, QString>& DarkTexts() {
  static const QHash<QString, QString> map = {
      {"#111827", "#f3f4f6"}, {"#1f2937", "#e5e7eb"}, {"#374151", "#d1d5db"}, {"#4b5563", "#bcc3ce"},
      {"#5f6672", "#a7aebb"}, {"#6b7280", "#a7aebb"}, {"#9ca3af", "#7c8493"}, {"#ffffff", "#ffffff"},
      {"#1d4ed8", "#93c5fd"}, {"#1e3a8a", "#dbeafe"}, {"#b91c1c", "#f87171"}, {"#b45309", "#fbbf24"},
  };
  return map;
}

// Background and border colours of the light sheet and their dark surfaces. The accent blues
// that carry white text stay as they are.
const QHash<QString, QString>& DarkSurfaces() {
  static const QHash<QString, QString> map = {
      {"#ffffff", "#1f2228"}, {"#f3f4f6", "#16181d"}, {"#f9fafb", "#1b1e23"}, {"#f8fafc", "#262a31"},
      {"#e5e7eb", "#343842"}, {"#eceff3", "#2c3038"}, {"#f1f5f9", "#2c3038"}, {"#eef2f7", "#2e333c"},
      {"#e2e8f0", "#3a404b"}, {"#d1d5db", "#434955"}, {"#cbd5e1", "#4f5663"}, {"#94a3b8", "#6b7385"},
      {"#9ca3af", "#7c8493"}, {"#2563eb", "#2563eb"}, {"#1d4ed8", "#1d4ed8"}, {"#1e40af", "#1e40af"},
      {"#dbeafe", "#1e3a5f"}, {"#bfdbfe", "#264b7a"}, {"#93c5fd", "#3b82f6"}, {"#eff6ff", "#1f2a3c"},
      {"#e0e7ff", "#2a3560"}, {"#fffbeb", "#2b2616"}, {"#fde68a", "#6b5a1e"}, {"#fee2e2", "#4a1f1f"},
      {"#fecaca", "#5c2424"}, {"#fca5a5", "#b91c1c"}, {"#dc2626", "#ef4444"}, {"#fffbe6", "#3d3417"},
      {"#6b7280", "#8a919e"},
  };
  return map;
}

bool IsTextProperty(const QString& property) {
  return property == u"color" || property == u"selection-color";
}

// One declaration's value with its colours exchanged; rgba() keeps its alpha.
QString DarkValue(const QString& property, QString value) {
  const QHash<QString, QString>& map = IsTextProperty(property) ? DarkTexts() : DarkSurfaces();
  static const QRegularExpression hex(QStringLiteral("#[0-9a-fA-F]{6}"));
  static const QRegularExpression rgba(QStringLiteral("rgba\\((\\d+),\\s*(\\d+),\\s*(\\d+),\\s*(\\d+)\\)"));
  QString out;
  qsizetype from = 0;
  for (auto match = rgba.globalMatch(value); match.hasNext();) {
    const auto m = match.next();
    const QColor light(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    const QColor dark(map.value(light.name(), light.name()));
    out += value.mid(from, m.capturedStart() - from) +
           QStringLiteral("rgba(%1, %2, %3, %4)").arg(dark.red()).arg(dark.green()).arg(dark.blue()).arg(m.captured(4));
    from = m.capturedEnd();
  }
  value = out + value.mid(from);
  out.clear(), from = 0;
  for (auto match = hex.globalMatch(value); match.hasNext();) {
    const auto m = match.next();
    out += value.mid(from, m.capturedStart() - from) + map.value(m.captured().toLower(), m.captured());
    from = m.capturedEnd();
  }
  return out + value.mid(from);
}

// The declarations inside one pair of braces, each value with its colours exchanged.
QString DarkBlock(const QString& block) {
  static const QRegularExpression declaration(QStringLiteral("([a-zA-Z-]+)(\\s*:\\s*)([^;]*)"));
  QString out;
  qsizetype from = 0;
  for (auto match = declaration.globalMatch(block); match.hasNext();) {
    const auto m = match.next();
    out += block.mid(from, m.capturedStart() - from) + m.captured(1) + m.captured(2) +
           DarkValue(m.captured(1).toLower(), m.captured(3));
    from = m.capturedEnd();
  }
  return out + block.mid(from);
}

// An icon's colour on dark windows: light fills become surfaces, the greys become text greys,
// the accents their brighter tones.
QString DarkIconColor(const QString& light) {
  static const QHash<QString, QString> accents = {
      {"#2563eb", "#60a5fa"}, {"#1d4ed8", "#93c5fd"}, {"#a16207", "#facc15"}, {"#db2777", "#f472b6"},
      {"#dc2626", "#f87171"}, {"#16a34a", "#4ade80"}, {"#7c3aed", "#a78bfa"}, {"#0d9488", "#2dd4bf"},
  };
  const QColor color(light);
  if (color.lightness() > 200) return DarkSurfaces().value(light, color.darker(500).name());
  if (accents.contains(light)) return accents.value(light);
  return DarkTexts().value(light, color.lighter(170).name());
}

bool GnomePrefersDark() {
  const QString gsettings = QStandardPaths::findExecutable(QStringLiteral("gsettings"));
  if (gsettings.isEmpty()) return false;
  QProcess process;
  process.start(gsettings, {QStringLiteral("get"), QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("color-scheme")});
  // A desktop that does not answer at once is taken as light rather than holding the start.
  if (!process.waitForFinished(700)) {
    process.kill();
    process.waitForFinished(100);
    return false;
  }
  return QString::fromUtf8(process.readAllStandardOutput()).contains(QStringLiteral("prefer-dark"));
}

}  // namespace

Theme::Choice Theme::ChoiceOf(const QString& word) {
  if (word == u"Light") return Choice::Light;
  if (word == u"Dark") return Choice::Dark;
  return Choice::Desktop;
}

QString Theme::WordOf(Choice choice) {
  switch (choice) {
    case Choice::Light: return QStringLiteral("Light");
    case Choice::Dark: return QStringLiteral("Dark");
    case Choice::Desktop: break;
  }
  return QStringLiteral("Desktop");
}

bool Theme::DesktopPrefersDark(const QPalette& desktop) {
  if (desktop.color(QPalette::Window).lightness() < 128) return true;
  if (qEnvironmentVariable("GTK_THEME").endsWith(QStringLiteral(":dark"), Qt::CaseInsensitive)) return true;
  return GnomePrefersDark();
}

QString Theme::Sheet(const QString& lightSheet, bool dark) {
  if (!dark) return lightSheet;
  QString out;
  qsizetype at = 0;
  while (at < lightSheet.size()) {
    const qsizetype open = lightSheet.indexOf(u'{', at);
    if (open < 0) break;
    const qsizetype close = lightSheet.indexOf(u'}', open);
    if (close < 0) break;
    out += lightSheet.mid(at, open + 1 - at) + DarkBlock(lightSheet.mid(open + 1, close - open - 1)) + u'}';
    at = close + 1;
  }
  return out + lightSheet.mid(at);
}

QPalette Theme::Palette(bool dark) {
  struct Role {
    QPalette::ColorRole role;
    const char* light;
    const char* dark;
  };
  static const Role roles[] = {
      {QPalette::Window, "#f3f4f6", "#16181d"},        {QPalette::WindowText, "#111827", "#e5e7eb"},
      {QPalette::Base, "#ffffff", "#1f2228"},          {QPalette::AlternateBase, "#f9fafb", "#23262d"},
      {QPalette::Text, "#111827", "#e5e7eb"},          {QPalette::Button, "#ffffff", "#23262d"},
      {QPalette::ButtonText, "#111827", "#e5e7eb"},    {QPalette::BrightText, "#ffffff", "#ffffff"},
      {QPalette::Highlight, "#2563eb", "#2563eb"},     {QPalette::HighlightedText, "#ffffff", "#ffffff"},
      {QPalette::ToolTipBase, "#ffffff", "#1f2228"},   {QPalette::ToolTipText, "#111827", "#e5e7eb"},
      {QPalette::PlaceholderText, "#6b7280", "#a7aebb"}, {QPalette::Link, "#1d4ed8", "#93c5fd"},
      {QPalette::LinkVisited, "#6d28d9", "#c4b5fd"},   {QPalette::Light, "#ffffff", "#3a404b"},
      {QPalette::Midlight, "#e5e7eb", "#343842"},      {QPalette::Mid, "#9ca3af", "#6b7385"},
      {QPalette::Dark, "#6b7280", "#0f1114"},          {QPalette::Shadow, "#374151", "#000000"},
  };
  QPalette palette;
  for (const Role& r : roles) palette.setColor(r.role, QColor(dark ? r.dark : r.light));
  for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(dark ? "#7c8493" : "#9ca3af"));
  }
  return palette;
}

QByteArray Theme::DarkSvg(const QByteArray& lightSvg) {
  static const QRegularExpression hex(QStringLiteral("#[0-9a-fA-F]{6}\\b"));
  const QString svg = QString::fromUtf8(lightSvg);
  QString out;
  qsizetype from = 0;
  for (auto match = hex.globalMatch(svg); match.hasNext();) {
    const auto m = match.next();
    out += svg.mid(from, m.capturedStart() - from) + DarkIconColor(m.captured().toLower());
    from = m.capturedEnd();
  }
  return (out + svg.mid(from)).toUtf8();
}

void Theme::Apply(QApplication& application, bool dark) {
  // The desktop's icons where the program has none of its own, in the matching variant.
  const QString icons = dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
  if (QDir(QStringLiteral("/usr/share/icons/") + icons).exists()) QIcon::setThemeName(icons);
  QApplication::setPalette(Palette(dark));
  QFile sheet(DataFile(QStringLiteral("Ribbon/Quillograph.qss")));
  if (!sheet.open(QIODevice::ReadOnly)) return;
  // The sheet names the program's own pictures by %DATA%, wherever the data folder stands.
  const QString light = QString::fromUtf8(sheet.readAll()).replace(QStringLiteral("%DATA%"), DataFolder());
  application.setStyleSheet(Sheet(light, dark));
}

}  // namespace platform
