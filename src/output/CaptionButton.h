#pragma once

#include <QIcon>
#include <QLabel>
#include <QPushButton>

#include <functional>

namespace output {

// A large backstage button with two lines beside its icon: a caption in the text's colour and a
// description in grey under it. The style sheet finds the parts as QLabel#lblCaption and
// QLabel#lblDescription inside a QPushButton[captionButton="true"].
class CaptionButton : public QPushButton {
  Q_OBJECT

public:
  CaptionButton(const QString& caption, const QString& description, const QIcon& icon, QWidget* parent = nullptr);
  // The icon is made when the button is first painted.
  CaptionButton(const QString& caption, const QString& description, std::function<QIcon()> icon, QWidget* parent = nullptr);

  QString Caption() const { return m_caption->text(); }
  QString Description() const { return m_description->text(); }
  QLabel* CaptionLabel() const { return m_caption; }
  QLabel* DescriptionLabel() const { return m_description; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

private:
  QLabel* m_caption;
  QLabel* m_description;
};

}  // namespace output
