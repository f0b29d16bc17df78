// Takes the pages the program opens in place of the browser: registered with
// QDesktopServices::setUrlHandler for a scheme, it keeps every URL it is
// given, so a test sees what a person's browser would have been asked for.
#pragma once

#include <QList>
#include <QObject>
#include <QUrl>

class UrlCatcher : public QObject {
  Q_OBJECT

 public:
  QList<QUrl> opened;

 public slots:
  void Open(const QUrl& url) { opened << url; }
};
