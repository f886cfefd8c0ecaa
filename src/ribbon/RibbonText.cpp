#include "RibbonText.h"

#include <QFontMetrics>
#include <QKeySequence>

namespace ribbon {

namespace {

// Walks a caption's mnemonic marks: "&&" becomes doubled (keeping it for a button) or single.
QString StripMnemonics(const QString& caption, bool keepDoubled) {
  QString text;
  text.reserve(caption.size());
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] != u'&') {
      text += caption[i];
      continue;
    }
    if (i + 1 < caption.size() && caption[i + 1] == u'&') {
      text += keepDoubled ? QStringLiteral("&&") : QStringLiteral("&");
      ++i;
    }
  }
  return text;
}

}  // namespace

QString PlainCaption(const QString& caption) { return StripMnemonics(caption, false); }

QString ButtonCaption(const QString& caption) { return StripMnemonics(caption, true); }

QKeySequence MnemonicKey(const QString& caption) { return QKeySequence::mnemonic(caption); }

QString TwoLineCaption(const QString& caption, const QFontMetrics& metrics, int width) {
  if (metrics.horizontalAdvance(caption) <= width) return caption;
  const qsizetype middle = caption.size() / 2;
  qsizetype best = -1;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == u' ' && (best < 0 || qAbs(i - middle) < qAbs(best - middle))) best = i;
  }
  if (best < 0) return caption;
  return caption.left(best) + u'\n' + caption.mid(best + 1);
}

QString RichToolTip(const CommandControl& control) {
  QString title = control.ToolTip().isEmpty() ? PlainCaption(control.Caption()) : control.ToolTip();
  if (!control.Shortcut().isEmpty()) {
    const QString keys = QKeySequence(control.Shortcut()).toString(QKeySequence::NativeText);
    title = title.isEmpty() ? keys : title + QStringLiteral(" (") + keys + u')';
  }
  const QString description = control.Description();
  if (title.isEmpty() && description.isEmpty()) return {};
  QString tip = QStringLiteral("<p style='white-space:pre; margin:0'><b>") + title.toHtmlEscaped() + QStringLiteral("</b></p>");
  if (!description.isEmpty()) {
    tip += QStringLiteral("<p style='margin:4px 0 0 0; color:#4b5563'>") + description.toHtmlEscaped() + QStringLiteral("</p>");
  }
  return tip;
}

QColor ToQColor(std::int32_t color) {
  const auto value = static_cast<std::uint32_t>(color);
  return {static_cast<int>(value & 0xFFu), static_cast<int>((value >> 8) & 0xFFu), static_cast<int>((value >> 16) & 0xFFu)};
}

std::int32_t FromQColor(const QColor& color) {
  const QColor rgb = color.toRgb();
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(rgb.red()) | (static_cast<std::uint32_t>(rgb.green()) << 8) |
                                   (static_cast<std::uint32_t>(rgb.blue()) << 16));
}

}  // namespace ribbon
