#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace chain {

// The window in a typical state, laid out off the screen and saved as a picture: the manual's
// chapter shows it.
class ChainPicture {
public:
  // What the command line asks for: "--picture FILE [--size WxH]".
  struct Request {
    QString File;
    QSize Size{1280, 820};
  };
  // Nothing when no picture is asked for; Problem set when the arguments are wrong.
  static std::optional<Request> Read(const QStringList& arguments, QString& problem);
  // Writes the picture; the problem in words, or empty on success.
  static QString Write(const Request& request);
};

}  // namespace chain
