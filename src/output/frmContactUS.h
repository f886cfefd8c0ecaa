#pragma once

#include "platform/Desktop.h"

#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace output {

// How to reach the people who make the program: three links over a picture. It grows open from
// nothing in the middle of the screen, stays there, and goes when it loses the activation.
class frmContactUS : public QWidget {
  Q_OBJECT

public:
  explicit frmContactUS(platform::Desktop& desktop, QWidget* parent = nullptr);

  // Opens a page of the program by its path; the desktop's browser when not given.
  std::function<void(const QString&)> ShowPage;

  QLabel* Link(const QString& name) const;
  // One tick of the growing: wider by 300 twips below 4900, higher by 250 below 4500, centred.
  void tmrSizer_Timer();
  // The size the growing has reached, in twips.
  QSize SizeTwips() const { return QSize(m_widthTwips, m_heightTwips); }

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  QLabel* AddLink(const char* name, const QString& text, const QString& page);

  platform::Desktop& m_desktop;
  QWidget* m_content;
  QTimer m_tmrSizer;
  int m_widthTwips = 0;
  int m_heightTwips = 0;
};

}  // namespace output
