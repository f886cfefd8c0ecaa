#pragma once

#include <QObject>

#include <functional>

class QLineEdit;

namespace rows {

// Keeps the focus in a field while its text is not valid: the field turns red and a click or Tab
// elsewhere brings the focus straight back, so that a wrong bound or zoom cannot be left behind.
class FieldGuard : public QObject {
  Q_OBJECT

public:
  FieldGuard(QLineEdit& field, std::function<bool(const QString&)> valid);

  bool Valid() const;
  // Colours the field by its text: white when valid, red (255) when not.
  void Refresh();

  static void SetBackground(QLineEdit& field, bool red);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QLineEdit& m_field;
  std::function<bool(const QString&)> m_valid;
};

}  // namespace rows
