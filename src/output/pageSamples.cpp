#include "pageSamples.h"

#include "SampleList.h"

#include "platform/DataFolder.h"
#include "ribbon/Icons.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace output {

namespace {

QString SampleFile(const char* tag, const char* extension) {
  return platform::DataFile(QStringLiteral("Functions/") + QString::fromUtf8(tag) + QString::fromLatin1(extension));
}

constexpr int kPictureWidth = 420;
constexpr int kPictureHeight = 315;

}  // namespace

pageSamples::pageSamples(core::SharedState& state, platform::MessageBoxes& boxes, QWidget* parent)
    : QWidget(parent), m_state(state), m_boxes(boxes) {
  setObjectName(QStringLiteral("pageSamples"));
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(32, 24, 32, 24);
  layout->setSpacing(24);

  m_rszSamples = new QScrollArea(this);
  m_rszSamples->setObjectName(QStringLiteral("rszSamples"));
  m_rszSamples->setWidgetResizable(true);
  m_rszSamples->setFrameShape(QFrame::NoFrame);
  m_rszSamples->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* list = new QWidget(m_rszSamples);
  list->setObjectName(QStringLiteral("picSamples"));
  auto* column = new QVBoxLayout(list);
  column->setContentsMargins(0, 0, 8, 0);
  column->setSpacing(4);
  const QIcon fallback = ribbon::IconFor(QStringLiteral("image-x-generic"));
  for (std::size_t i = 0; i < kSamples.size(); ++i) {
    const Sample& sample = kSamples[i];
    const QString picture = SampleFile(sample.Tag, ".jpg");
    // The sample's own picture as its icon, read when the button is first shown.
    const auto icon = [picture, fallback] { return QFileInfo::exists(picture) ? QIcon(picture) : fallback; };
    auto* button = new CaptionButton(QString::fromUtf8(sample.Title), QString::fromUtf8(sample.Description), icon, list);
    button->setObjectName(QStringLiteral("btnSample"));
    button->setProperty("tag", QString::fromUtf8(sample.Tag));
    button->setMouseTracking(true);
    button->installEventFilter(this);
    const int index = static_cast<int>(i);
    connect(button, &QPushButton::clicked, this, [this, index] { btnSample_Click(index); });
    column->addWidget(button);
    m_buttons.push_back(button);
  }
  m_btnSmaple = new CaptionButton(QStringLiteral("Circle"), QStringLiteral("Common Circle Function Sample"), fallback, list);
  m_btnSmaple->setObjectName(QStringLiteral("btnSmaple"));
  m_btnSmaple->hide();
  column->addStretch();
  m_rszSamples->setWidget(list);
  m_rszSamples->setMinimumWidth(360);
  m_rszSamples->setMaximumWidth(460);
  layout->addWidget(m_rszSamples, 1);

  auto* side = new QVBoxLayout;
  auto* hint = new QLabel(tr("Rest the pointer on a sample to see it; click to open it."), this);
  hint->setObjectName(QStringLiteral("lblSamplesHint"));
  hint->setWordWrap(true);
  side->addWidget(hint);
  m_picSample = new QLabel(this);
  m_picSample->setObjectName(QStringLiteral("picSample"));
  m_picSample->setFixedSize(kPictureWidth, kPictureHeight);
  m_picSample->setAlignment(Qt::AlignCenter);
  side->addWidget(m_picSample, 0, Qt::AlignLeft | Qt::AlignTop);
  side->addStretch();
  layout->addLayout(side, 1);

  m_pb = new QProgressBar(this);
  m_pb->setObjectName(QStringLiteral("PB"));
  m_pb->setTextVisible(false);
  m_pb->setFixedHeight(6);
  m_pb->hide();
}

void pageSamples::btnSample_Click(int index) {
  if (index < 0 || index >= SampleCount()) return;
  if (MayReplace && !MayReplace()) return;
  // The moving bar: work without a measure of how far it is.
  m_pb->setRange(0, 0);
  PlaceProgress();
  m_pb->show();
  m_pb->raise();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  const bool loaded = !LoadProject || LoadProject(SampleFile(kSamples[static_cast<std::size_t>(index)].Tag, ".qlfn"));
  m_pb->setRange(0, 100);
  m_pb->hide();
  // A sample that could not be read has said why and left the open project as it was.
  if (!loaded) return;
  if (isVisible()) {
    m_boxes.Show(QStringLiteral("Sample loaded, go back to the main form."), platform::MessageBoxes::Buttons::Ok,
                 platform::MessageBoxes::Icon::Information, QStringLiteral("Sample Loaded - [Info-0003]"));
  }
  m_state.ProjectPath.clear();
  m_state.ProjectChanged = false;
  if (Loaded) Loaded();
}

void pageSamples::btnSample_MouseMove(int index, QPoint position) {
  if (index < 0 || index >= SampleCount()) return;
  const CaptionButton* button = btnSample(index);
  if (position.x() < 0 || position.y() < 0 || position.x() > button->width() || position.y() > button->height()) {
    if (m_hovered == index) m_hovered = -1;
    ShowPicture(QString());
    return;
  }
  // Already showing this one: the picture is not read again for every move.
  if (m_hovered == index) return;
  m_hovered = index;
  ShowPicture(SampleFile(kSamples[static_cast<std::size_t>(index)].Tag, ".jpg"));
}

bool pageSamples::eventFilter(QObject* watched, QEvent* event) {
  const auto found = std::find(m_buttons.begin(), m_buttons.end(), watched);
  if (found == m_buttons.end()) return QWidget::eventFilter(watched, event);
  const int index = static_cast<int>(found - m_buttons.begin());
  switch (event->type()) {
    case QEvent::Enter: btnSample_MouseMove(index, static_cast<QEnterEvent*>(event)->position().toPoint()); break;
    case QEvent::MouseMove: btnSample_MouseMove(index, static_cast<QMouseEvent*>(event)->position().toPoint()); break;
    case QEvent::Leave: btnSample_MouseMove(index, QPoint(-1, -1)); break;
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

void pageSamples::ShowPicture(const QString& file) {
  if (file.isEmpty()) {
    m_picSample->clear();
    m_shown.clear();
    return;
  }
  const QPixmap picture(file);
  // A missing picture leaves the box as it was.
  if (picture.isNull()) return;
  const qreal ratio = devicePixelRatioF();
  QPixmap scaled = picture.scaled(QSize(kPictureWidth, kPictureHeight) * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  scaled.setDevicePixelRatio(ratio);
  m_picSample->setPixmap(scaled);
  m_shown = file;
}

void pageSamples::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceProgress();
}

// Under the list, as wide as it, 6 px below it.
void pageSamples::PlaceProgress() {
  const QRect list = m_rszSamples->geometry();
  m_pb->setGeometry(list.left(), std::min(list.bottom() + 6, height() - m_pb->height()), list.width(), m_pb->height());
}

}  // namespace output
