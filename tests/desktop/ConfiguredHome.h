// A fresh HOME, and one as the first start leaves it: the Data and Work
// folders under Documents/Orvanta, named in the settings, the defaults marked
// as set, and the sample templates of the installation in the Work folder.
// Shared by the desktop tests and the screenshot tour.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QString>

#include "shell/Settings.h"

namespace corvalin::desktoptest {

// A new, empty HOME of its own for this process, named by the environment;
// `kind` tells whose it is in the temporary folder.
inline QString NewHome(const char* kind = "desktop") {
  static int count = 0;
  const QString home = QDir::tempPath() + QStringLiteral("/corvalin-%1-%2-%3")
                                              .arg(QString::fromLatin1(kind))
                                              .arg(QCoreApplication::applicationPid())
                                              .arg(++count);
  QDir(home).removeRecursively();
  QDir().mkpath(home);
  qputenv("HOME", home.toUtf8());
  qputenv("XDG_CONFIG_HOME", (home + QStringLiteral("/.config")).toUtf8());
  qunsetenv("XDG_DOCUMENTS_DIR");
  return home;
}

// The Work folder of a configured HOME.
inline QString WorkOf(const QString& home) { return home + QStringLiteral("/Documents/Orvanta/Work/"); }

// Sets up the folders and settings of the HOME the environment names.
inline void ConfigureHome(const QString& home) {
  const QString orvanta = home + QStringLiteral("/Documents/Orvanta");
  QDir().mkpath(orvanta + QStringLiteral("/Data"));
  QDir().mkpath(orvanta + QStringLiteral("/Work"));
  SaveSetting(SettingsApplication, "Common", "DataDir", (orvanta + QStringLiteral("/Data/")).toStdString());
  SaveSetting(SettingsApplication, "Common", "WorkDir", (orvanta + QStringLiteral("/Work/")).toStdString());
  SaveSetting(SettingsApplication, "Corvalin", "Configured", "YES");
  const QDir samples(QStringLiteral(CORVALIN_BINARY_DIR "/share/corvalin/Work"));
  for (const QString& file : samples.entryList(QDir::Files))
    QFile::copy(samples.filePath(file), WorkOf(home) + file);
}

}  // namespace corvalin::desktoptest
