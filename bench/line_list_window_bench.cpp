// The editors' lists of a file's lines (the stand list and location
// editors), offscreen: how long a list takes to be filled with a file's
// lines, brought to a line in its middle and painted, as the editor does
// when it comes up; against a list that measures each line through the
// style, as the lists did before each line took one row size. Medians of
// several runs; the figures go into docs/performance.md.
//
// line_list_window_bench [file] [runs]
#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QListWidget>
#include <QStringList>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "desktop/DrawControls.h"

using Clock = std::chrono::steady_clock;

namespace {

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t n = values.size();
  return n % 2 == 1 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Fills the list, brings the middle line into view and paints it.
double Show(QListWidget* list, const QStringList& lines) {
  const auto start = Clock::now();
  list->clear();
  list->addItems(lines);
  list->setCurrentRow(static_cast<int>(lines.size() / 2));
  list->scrollToItem(list->currentItem());
  list->grab();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const QString path = QString::fromLocal8Bit(argc > 1 ? argv[1] : "../shared/data/lolo-2022/tree.csv");
  const int runs = argc > 2 ? std::atoi(argv[2]) : 9;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    std::fprintf(stderr, "line_list_window_bench: cannot read %s\n", qPrintable(path));
    return 1;
  }
  QStringList lines;
  for (const QByteArray& line : file.readAll().split('\n')) lines << QString::fromLatin1(line.trimmed());

  QWidget window;
  window.resize(900, 500);
  QListWidget* oneSize = corvalin::NewLineList(&window, "lstLocation", QStringLiteral("Location File"), 80);
  oneSize->setGeometry(0, 0, 900, 500);
  QWidget other;
  other.resize(900, 500);
  auto* eachLine = new QListWidget(&other);
  eachLine->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  eachLine->setGeometry(0, 0, 900, 500);
  window.show();
  other.show();
  QApplication::processEvents();

  std::vector<double> one;
  std::vector<double> each;
  for (int run = 0; run < runs; ++run) {
    one.push_back(Show(oneSize, lines));
    each.push_back(Show(eachLine, lines));
  }
  const double oneMs = Median(one);
  const double eachMs = Median(each);
  std::printf("line list: %lld lines of %s, %d runs\n", static_cast<long long>(lines.size()), qPrintable(path), runs);
  std::printf("  one row size: median %.2f ms\n", oneMs);
  std::printf("  each line measured: median %.2f ms (%.1fx)\n", eachMs, oneMs > 0 ? eachMs / oneMs : 0.0);
  return 0;
}
