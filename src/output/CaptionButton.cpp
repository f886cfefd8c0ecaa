#include "CaptionButton.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace output {

namespace {

constexpr int kIconSide = 30;
constexpr int kLeast = 46;  // the height of a button of two lines

// The icon, painted at the screen's density by the icon's own engine.
class IconView : public QWidget {
public:
  IconView(const QIcon& icon, QWidget* parent) : QWidget(parent), m_icon(icon) {
    setFixedSize(kIconSide, kIconSide);
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    m_icon.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }

private:
  QIcon m_icon;
};

}  // namespace

CaptionButton::CaptionButton(const QString& caption, const QString& description, const QIcon& icon, QWidget* parent)
    : QPushButton(parent) {
  setProperty("captionButton", true);
  setCursor(Qt::PointingHandCursor);
  setAccessibleName(caption);
  setAccessibleDescription(description);
  setToolTip(description);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 5, 12, 5);
  row->setSpacing(12);
  auto* picture = new IconView(icon, this);
  picture->setObjectName(QStringLiteral("imgIcon"));
  row->addWidget(picture, 0, Qt::AlignVCenter);
  auto* lines = new QVBoxLayout;
  lines->setSpacing(0);
  m_caption = new QLabel(caption, this);
  m_caption->setObjectName(QStringLiteral("lblCaption"));
  m_description = new QLabel(description, this);
  m_description->setObjectName(QStringLiteral("lblDescription"));
  for (QLabel* label : {m_caption, m_description}) {
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setTextFormat(Qt::PlainText);
    lines->addWidget(label);
  }
  QFont bold = m_caption->font();
  bold.setWeight(QFont::DemiBold);
  m_caption->setFont(bold);
  // Grey without a style sheet too; the sheet may choose its own grey.
  QPalette grey = m_description->palette();
  grey.setColor(QPalette::WindowText, QColor(0x6f, 0x6f, 0x6f));
  m_description->setPalette(grey);
  row->addLayout(lines, 1);
}

QSize CaptionButton::sizeHint() const { return layout()->sizeHint().expandedTo(QSize(0, kLeast)); }

QSize CaptionButton::minimumSizeHint() const { return layout()->minimumSize().expandedTo(QSize(0, kLeast)); }

}  // namespace output
