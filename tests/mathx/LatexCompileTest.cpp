// The LaTeX of every sample row compiles in a plain amsmath document. Runs where a TeX system is
// installed; elsewhere the exact LaTeX of RowExportTest is the check.
#include "SampleRows.h"

#include "mathx/RowExport.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QString Document(const QStringList& rows) {
  QString document = QStringLiteral("\\documentclass{article}\n\\usepackage{amsmath}\n\\begin{document}\n");
  for (const QString& row : rows) {
    const QString latex = mathx::RowExport::ToLatex(row);
    if (!latex.isEmpty()) document += u'$' + latex + QStringLiteral("$\n\n");
  }
  return document + QStringLiteral("\\end{document}\n");
}

TEST(LatexCompile, EverySampleRowCompiles) {
  QString program = QStandardPaths::findExecutable(QStringLiteral("pdflatex"));
  if (program.isEmpty()) program = QStandardPaths::findExecutable(QStringLiteral("latex"));
  if (program.isEmpty()) GTEST_SKIP() << "no LaTeX installed";
  QStringList rows = SampleRows();
  ASSERT_GT(rows.size(), 100);
  // And the rows that show each kind of node once.
  rows << "y=sqrt(abs(x))" << "r=2sin(3theta)" << "y=x/2/3" << "y=xroot(x+1,5)" << "y=ln(x)+log10(x)"
       << "y=sgn(x)*fix(x)" << "y<>x" << "y=2*3" << "y=x mod 3" << "y=7\\2" << "y=alpha*x+beta"
       << "declare(y=x,domain(x,0,1,0) and domain(y,0,1,3))" << "y=x^2;0<x<3" << "[r,q..symb;2,pi/4]"
       << "command==>[showgrid]" << "y=sin x" << "y=[x]+1";
  QTemporaryDir folder;
  ASSERT_TRUE(folder.isValid());
  QFile file(folder.filePath(QStringLiteral("rows.tex")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(Document(rows).toUtf8());
  file.close();
  QProcess tex;
  tex.setWorkingDirectory(folder.path());
  tex.start(program, {QStringLiteral("-interaction=nonstopmode"), QStringLiteral("-halt-on-error"), QStringLiteral("rows.tex")});
  ASSERT_TRUE(tex.waitForFinished(300000)) << "LaTeX did not finish";
  const QString log = QString::fromUtf8(tex.readAllStandardOutput());
  EXPECT_EQ(tex.exitCode(), 0) << log.right(3000).toStdString();
  EXPECT_FALSE(log.contains(QStringLiteral("\n! "))) << log.right(3000).toStdString();
}

}  // namespace
