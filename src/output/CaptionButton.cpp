#include "CaptionButton.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace output {

namespace {

constexpr int kIconSide = 30;
constexpr int kLeast = 46;  // the height of a button of two lines

// The icon, painted at the screen's density by the icon's own engine. It is made when it is
// first painted: an icon of a picture file decodes the whole file as it is made.
class IconView : public QWidget {
public:
  IconView(std::function<QIcon()> make, QWidget* parent) : QWidget(parent), m_make(std::move(make)) {
    setFixedSize(kIconSide, kIconSide);
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    if (m_make) {
      m_icon = m_make();
      m_make = nullptr;
    }
    QPainter painter(this);
    m_icon.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }

private:
  std::function<QIcon()> m_make;
  QIcon m_icon;
};

}  // namespace

CaptionButton::CaptionButton(const QString& caption, const QString& description, const QIcon& icon, QWidget* parent)
    : CaptionButton(caption, description, [icon] { return icon; }, parent) {}

CaptionButton::CaptionButton(const QString& caption, const QString& description, std::function<QIcon()> icon, QWidget* parent)
    : QPushButton(parent) {
  setProperty("captionButton", true);
  setCursor(Qt::PointingHandCursor);
  setAccessibleName(caption);
  setAccessibleDescription(description);
  setToolTip(description);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 5, 12, 5);
  row->setSpacing(12);
  auto* picture = new IconView(std::move(icon), this);
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
