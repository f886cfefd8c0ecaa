#include "frmContactUS.h"

#include "core/Twips.h"
#include "platform/DataFolder.h"
#include "ribbon/Icons.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QVBoxLayout>

namespace output {

using core::Px;

frmContactUS::frmContactUS(platform::Desktop& desktop, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint), m_desktop(desktop) {
  setObjectName(QStringLiteral("frmContactUS"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(tr("Contact us"));
  m_content = new QWidget(this);
  auto* layout = new QVBoxLayout(m_content);
  layout->setContentsMargins(28, 24, 28, 24);
  layout->setSpacing(10);
  auto* logo = new QLabel(m_content);
  logo->setPixmap(ribbon::IconFor(QStringLiteral("quillograph")).pixmap(56, 56));
  layout->addWidget(logo);
  auto* title = new QLabel(tr("Contact us"), m_content);
  title->setObjectName(QStringLiteral("ContactTitle"));
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.8);
  font.setBold(true);
  title->setFont(font);
  layout->addWidget(title);
  auto* words = new QLabel(tr("Questions, ideas, a curve that looks wrong? We would like to hear of it."), m_content);
  words->setWordWrap(true);
  layout->addWidget(words);
  layout->addSpacing(8);
  AddLink("Label1", tr("The people behind Quillograph"), QStringLiteral("about.html"));
  AddLink("lblPage", tr("Quillograph's community page"), QStringLiteral("contact.html"));
  AddLink("lblWebsite", tr("Quillograph's pages"), QStringLiteral("tutorial.html"));
  layout->addStretch();

  resize(0, 0);
  connect(&m_tmrSizer, &QTimer::timeout, this, &frmContactUS::tmrSizer_Timer);
  m_tmrSizer.start(10);
}

QLabel* frmContactUS::AddLink(const char* name, const QString& text, const QString& page) {
  auto* link = new QLabel(QStringLiteral("<a href=\"%1\">%2</a>").arg(page, text.toHtmlEscaped()), m_content);
  link->setObjectName(QString::fromLatin1(name));
  link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  link->setCursor(Qt::PointingHandCursor);
  // What a label shows and the page it opens are two values.
  connect(link, &QLabel::linkActivated, this,
          [this](const QString& address) {
            const QString path = platform::DataFile(QStringLiteral("pages/") + address);
            // In the program's own window where there is one: it needs no browser.
            if (ShowPage) ShowPage(path);
            else m_desktop.OpenAddress(path);
          });
  m_content->layout()->addWidget(link);
  return link;
}

QLabel* frmContactUS::Link(const QString& name) const { return findChild<QLabel*>(name); }

void frmContactUS::tmrSizer_Timer() {
  // The size is kept in twips, so that the steps add up exactly whatever the screen's density.
  if (m_widthTwips < 4900) m_widthTwips += 300;
  if (m_heightTwips < 4500) m_heightTwips += 250;
  const QSize size(Px(m_widthTwips), Px(m_heightTwips));
  if (size != this->size()) resize(size);
  if (const QScreen* screen = QApplication::primaryScreen()) {
    const QRect area = screen->geometry();
    move(area.x() + area.width() / 2 - width() / 2, area.y() + area.height() / 2 - height() / 2);
  }
  m_tmrSizer.setInterval(10);
}

bool frmContactUS::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate && QApplication::activeModalWidget() == nullptr) close();
  return QWidget::event(event);
}

void frmContactUS::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  m_content->setGeometry(rect());
}

// The background: a soft wash of the program's blue, with the curve of its icon across it.
void frmContactUS::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // In the dark look the wash is a deep blue, so that the palette's light text reads on it.
  const bool dark = palette().color(QPalette::Window).lightness() < 128;
  QLinearGradient wash(0, 0, width(), height());
  wash.setColorAt(0, dark ? QColor(0x1f, 0x2a, 0x3c) : QColor(0xef, 0xf6, 0xff));
  wash.setColorAt(1, dark ? QColor(0x17, 0x20, 0x33) : QColor(0xdb, 0xea, 0xfe));
  painter.fillRect(rect(), wash);
  QPainterPath curve;
  curve.moveTo(0, height() * 0.85);
  curve.cubicTo(width() * 0.3, height() * 0.85, width() * 0.4, height() * 0.45, width() * 0.62, height() * 0.6);
  curve.cubicTo(width() * 0.8, height() * 0.72, width() * 0.9, height() * 0.5, width(), height() * 0.35);
  painter.setPen(QPen(dark ? QColor(0x3b, 0x82, 0xf6, 90) : QColor(0x93, 0xc5, 0xfd, 120), 10, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(curve);
  painter.setPen(QPen(dark ? QColor(0x6b, 0x73, 0x85) : QColor(0x94, 0xa3, 0xb8), 1));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

}  // namespace output
