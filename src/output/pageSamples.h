#pragma once

#include "CaptionButton.h"

#include "core/SharedState.h"
#include "platform/MessageBoxes.h"

#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QWidget>

#include <functional>
#include <vector>

namespace output {

// The backstage's "Samples" page: a button for each sample project that comes with the program,
// its picture while the pointer rests on the button, and the load on a click. A sample replaces
// the project without a question and leaves it unnamed, so that Save asks for a new name and the
// sample's own file stays as it is.
class pageSamples : public QWidget {
  Q_OBJECT

public:
  pageSamples(core::SharedState& state, platform::MessageBoxes& boxes, QWidget* parent = nullptr);

  int SampleCount() const { return static_cast<int>(m_buttons.size()); }
  CaptionButton* btnSample(int index) const { return m_buttons.at(static_cast<std::size_t>(index)); }
  // The "Circle" button that does nothing.
  CaptionButton* btnSmaple() const { return m_btnSmaple; }
  QLabel* picSample() const { return m_picSample; }
  QProgressBar* PB() const { return m_pb; }
  QScrollArea* rszSamples() const { return m_rszSamples; }
  // The file of the picture shown, "" when none is.
  QString ShownPicture() const { return m_shown; }

  void btnSample_Click(int index);
  // The pointer at a position in the button's own coordinates: inside, its picture shows; outside,
  // the box empties.
  void btnSample_MouseMove(int index, QPoint position);

  // Whether the open project may give way to a sample (its unsaved changes were asked about).
  std::function<bool()> MayReplace;
  // Reads a project into the main window (the project reader); whether it was read.
  std::function<bool(const QString& path)> LoadProject;
  // After a sample is in: the window's title follows the unnamed project.
  std::function<void()> Loaded;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void ShowPicture(const QString& file);
  void PlaceProgress();

  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  QScrollArea* m_rszSamples;
  std::vector<CaptionButton*> m_buttons;
  CaptionButton* m_btnSmaple;
  QLabel* m_picSample;
  QProgressBar* m_pb;
  QString m_shown;
  int m_hovered = -1;
};

}  // namespace output
