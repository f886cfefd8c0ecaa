#include "ReplotInputs.h"

#include <QStringList>

namespace plotcompiler {

namespace {

// A separator no field can hold: the unit separator of ASCII.
constexpr QChar kField(0x1F);

void AddRows(const ReplotHost& host, QStringList& parts) {
  parts << QString::number(host.RowCount());
  for (int row = 0; row < host.RowCount(); ++row) {
    parts << host.RowText(row) << QString::number(host.RowColor(row))
          << QString::number(host.RowNoteVisible(row) ? 1 : 0) << host.RowAttributes(row);
  }
  parts << host.IntegralMinText() << host.IntegralMaxText();
}

void AddInequality(const ReplotHost& host, QStringList& parts) {
  for (int side = 0; side < 2; ++side) parts << host.InequalityText(side) << host.InequalityRelation(side);
  parts << QString::number(host.InequalityLineColor()) << QString::number(host.InequalityFillColor())
        << QString::number(host.InequalityTwoSides() ? 1 : 0);
}

void AddParametric(const ReplotHost& host, QStringList& parts) {
  parts << host.ParametricX() << host.ParametricY() << host.ParametricMin() << host.ParametricMax()
        << host.ParametricType() << QString::number(host.ParametricColor());
}

void AddSurface(const ReplotHost& host, QStringList& parts) {
  // The zoom is left out: it turns the surface already drawn and needs no new one.
  parts << QString::number(host.Selected3DTab()) << QString::number(host.GridIndex());
  for (const char* name : {"mth_3D_Function", "mth_3D_Polar", "mth_3D_Para_x", "mth_3D_Para_y", "mth_3D_Para_z",
                           "txt_thetaMin", "txt_thetaMax", "txt_phiMin", "txt_phiMax", "txt_3D_uMin", "txt_3D_uMax",
                           "txt_3D_vMin", "txt_3D_vMax"}) {
    parts << host.Text3D(QString::fromLatin1(name));
  }
}

}  // namespace

QString ReplotInputs(const ReplotHost& host) {
  QStringList parts;
  parts << QString::number(host.SelectedTab());
  AddRows(host, parts);
  AddInequality(host, parts);
  AddParametric(host, parts);
  AddSurface(host, parts);
  return parts.join(kField);
}

}  // namespace plotcompiler
