#include "screens/Application.h"

#include "screens/frmColumns.h"
#include "screens/frmHeaders.h"
#include "screens/frmLocation.h"
#include "screens/frmLocationRecord.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"

namespace corvalin {

Application::Application() = default;
Application::~Application() = default;

template <class T>
T& Application::Load(std::unique_ptr<T>& slot) {
  if (!slot) {
    slot = std::make_unique<T>();
    T& screen = *slot;
    if (ScreenCreated) ScreenCreated(screen);
    screen.Form_Load();
    return screen;
  }
  return *slot;
}

frmTemplate& Application::Template() { return Load(template_); }
frmColumns& Application::Columns() { return Load(columns_); }
frmHeaders& Application::Headers() { return Load(headers_); }
// The editors take their file names from the first screen, whose load sets
// its file labels; loading it first keeps that from unloading an editor that
// is itself still loading.
frmSlf& Application::Slf() {
  Template();
  return Load(slf_);
}
frmSlfRecord& Application::SlfRecord() { return Load(slfRecord_); }
frmLocation& Application::Location() {
  Template();
  return Load(location_);
}
frmLocationRecord& Application::LocationRecord() { return Load(locationRecord_); }

void Application::Retire(std::unique_ptr<Screen> screen) {
  if (!screen) return;
  if (screen->Visible()) screen->Hide();
  retired_.push_back(std::move(screen));
}

void Application::UnloadTemplate() { Retire(std::move(template_)); }
void Application::UnloadColumns() { Retire(std::move(columns_)); }
void Application::UnloadHeaders() { Retire(std::move(headers_)); }
void Application::UnloadSlf() { Retire(std::move(slf_)); }
void Application::UnloadSlfRecord() { Retire(std::move(slfRecord_)); }
void Application::UnloadLocation() { Retire(std::move(location_)); }
void Application::UnloadLocationRecord() { Retire(std::move(locationRecord_)); }

void Application::ShowModal(Screen& dialog) {
  dialog.Show();
  if (RunModal) RunModal(dialog);
  if (dialog.Visible()) dialog.DismissAsCancelled();
}

void Application::UnloadAll() {
  UnloadLocationRecord();
  UnloadLocation();
  UnloadSlfRecord();
  UnloadSlf();
  UnloadHeaders();
  UnloadColumns();
  UnloadTemplate();
  retired_.clear();
}

Application& App() {
  static Application application;
  return application;
}

}  // namespace corvalin
