#pragma once

class QWidget;

namespace rows {

// The pages of the backstage, as the File button's view shows them.
class BackstagePages {
public:
  static QWidget* Info();
  static QWidget* SaveAsPicture();
  static QWidget* Samples();
  static QWidget* WhatIsNew();
  static QWidget* SupportUs();
};

}  // namespace rows
