#include "screens/Application.h"

#include <algorithm>

#include "screens/frmColumns.h"
#include "screens/frmConfigure.h"
#include "screens/frmDamageSeverity.h"
#include "screens/frmEditTemplateCommands.h"
#include "screens/frmExcludeContaining.h"
#include "screens/frmExcludeRange.h"
#include "screens/frmExcludeStartingWith.h"
#include "screens/frmHeaders.h"
#include "screens/frmLocation.h"
#include "screens/frmLocationRecord.h"
#include "screens/frmReplaceAll.h"
#include "screens/frmSlf.h"
#include "screens/frmSlfRecord.h"
#include "screens/frmTemplate.h"
#include "screens/frmTemplateName.h"
#include "shell/Busy.h"
#include "shell/EventScope.h"

namespace corvalin {

Application::Application() {
  SetEventHooks({[this] { DeliverChanges(); },
                 [this] {
                   HideBusyLeftOver();
                   DestroyUnloaded();
                 }});
}

Application::~Application() {
  SetEventHooks({});
  // The process is ending: the views went with the desktop already.
  for (Slot& slot : loaded_) slot.screen->Attach(nullptr);
  for (auto& screen : unloaded_) screen->Attach(nullptr);
}

template <class T>
T& Application::Load() {
  for (Slot& slot : loaded_)
    if (slot.type == typeid(T)) return static_cast<T&>(*slot.screen);
  auto made = std::make_unique<T>();
  T& screen = *made;
  loaded_.push_back({typeid(T), std::move(made)});
  if (ViewFactory) ViewFactory(screen);
  screen.Form_Load();
  return screen;
}

template <class T>
bool Application::Loaded() const {
  return std::any_of(loaded_.begin(), loaded_.end(), [](const Slot& slot) { return slot.type == typeid(T); });
}

template <class T>
void Application::Unload() {
  const auto it =
      std::find_if(loaded_.begin(), loaded_.end(), [](const Slot& slot) { return slot.type == typeid(T); });
  if (it == loaded_.end()) return;
  std::unique_ptr<Screen> screen = std::move(it->screen);
  loaded_.erase(it);
  Retire(std::move(screen));
}

void Application::Retire(std::unique_ptr<Screen> screen) {
  if (screen->Visible()) screen->Hide();
  screen->Form_Unload();
  unloaded_.push_back(std::move(screen));
  // Outside any event nothing of the screen can still be running.
  if (!ProgramBusy()) DestroyUnloaded();
}

void Application::DestroyUnloaded() {
  // A view told of its unload may end an event of its own; take the list
  // first so that such a nested end finds it empty.
  std::vector<std::unique_ptr<Screen>> going;
  going.swap(unloaded_);
  for (auto& screen : going) {
    if (ScreenView* view = screen->View()) {
      screen->Attach(nullptr);
      view->Unloaded();
    }
  }
  going.clear();
}

void Application::DeliverChanges() {
  // A view's drawing may load a screen; walk by index.
  for (std::size_t i = 0; i < loaded_.size(); ++i) {
    Screen& screen = *loaded_[i].screen;
    ScreenView* view = screen.View();
    if (view == nullptr) continue;
    const ScreenChanges changes = screen.TakeChanges();
    if (changes.Any()) view->Changed(changes);
  }
}

frmTemplate& Application::Template() { return Load<frmTemplate>(); }
frmColumns& Application::Columns() { return Load<frmColumns>(); }
frmHeaders& Application::Headers() { return Load<frmHeaders>(); }
frmTemplateName& Application::TemplateName() { return Load<frmTemplateName>(); }
frmDamageSeverity& Application::DamageSeverity() { return Load<frmDamageSeverity>(); }
// The editors take their file names from the first screen, whose load sets
// its file labels; loading it first keeps that from unloading an editor that
// is itself still loading.
frmSlf& Application::Slf() {
  Template();
  return Load<frmSlf>();
}
frmSlfRecord& Application::SlfRecord() { return Load<frmSlfRecord>(); }
frmLocation& Application::Location() {
  Template();
  return Load<frmLocation>();
}
frmLocationRecord& Application::LocationRecord() { return Load<frmLocationRecord>(); }
// The defaults screen copies the template list of the first screen.
frmConfigure& Application::Configure() {
  Template();
  return Load<frmConfigure>();
}

frmExcludeContaining& Application::ExcludeContaining() { return Load<frmExcludeContaining>(); }
frmExcludeStartingWith& Application::ExcludeStartingWith() { return Load<frmExcludeStartingWith>(); }
frmExcludeRange& Application::ExcludeRange() { return Load<frmExcludeRange>(); }
frmReplaceAll& Application::ReplaceAll() { return Load<frmReplaceAll>(); }
frmEditTemplateCommands& Application::EditTemplateCommands() { return Load<frmEditTemplateCommands>(); }

bool Application::TemplateLoaded() const { return Loaded<frmTemplate>(); }
bool Application::ColumnsLoaded() const { return Loaded<frmColumns>(); }
bool Application::HeadersLoaded() const { return Loaded<frmHeaders>(); }
bool Application::TemplateNameLoaded() const { return Loaded<frmTemplateName>(); }
bool Application::DamageSeverityLoaded() const { return Loaded<frmDamageSeverity>(); }
bool Application::SlfLoaded() const { return Loaded<frmSlf>(); }
bool Application::SlfRecordLoaded() const { return Loaded<frmSlfRecord>(); }
bool Application::LocationLoaded() const { return Loaded<frmLocation>(); }
bool Application::LocationRecordLoaded() const { return Loaded<frmLocationRecord>(); }
bool Application::ConfigureLoaded() const { return Loaded<frmConfigure>(); }

bool Application::ExcludeContainingLoaded() const { return Loaded<frmExcludeContaining>(); }
bool Application::ExcludeStartingWithLoaded() const { return Loaded<frmExcludeStartingWith>(); }
bool Application::ExcludeRangeLoaded() const { return Loaded<frmExcludeRange>(); }
bool Application::ReplaceAllLoaded() const { return Loaded<frmReplaceAll>(); }
bool Application::EditTemplateCommandsLoaded() const { return Loaded<frmEditTemplateCommands>(); }

void Application::UnloadTemplate() { Unload<frmTemplate>(); }
void Application::UnloadColumns() { Unload<frmColumns>(); }
void Application::UnloadHeaders() { Unload<frmHeaders>(); }
void Application::UnloadTemplateName() { Unload<frmTemplateName>(); }
void Application::UnloadDamageSeverity() { Unload<frmDamageSeverity>(); }
void Application::UnloadSlf() { Unload<frmSlf>(); }
void Application::UnloadSlfRecord() { Unload<frmSlfRecord>(); }
void Application::UnloadLocation() { Unload<frmLocation>(); }
void Application::UnloadLocationRecord() { Unload<frmLocationRecord>(); }
void Application::UnloadConfigure() { Unload<frmConfigure>(); }

void Application::UnloadExcludeContaining() { Unload<frmExcludeContaining>(); }
void Application::UnloadExcludeStartingWith() { Unload<frmExcludeStartingWith>(); }
void Application::UnloadExcludeRange() { Unload<frmExcludeRange>(); }
void Application::UnloadReplaceAll() { Unload<frmReplaceAll>(); }
void Application::UnloadEditTemplateCommands() { Unload<frmEditTemplateCommands>(); }

void Application::ShowModal(Screen& dialog) {
  // The dialog's session is one event with whatever opened it: a dialog that
  // unloads itself stays until the opener is done with it.
  EventScope scope;
  dialog.Show();
  if (dialog.Visible()) UI().RunModal(dialog);
  if (dialog.Visible()) dialog.DismissAsCancelled();
}

void Application::UnloadAll() {
  // The latest first, as a person would close them.
  while (!loaded_.empty()) {
    std::unique_ptr<Screen> screen = std::move(loaded_.back().screen);
    loaded_.pop_back();
    Retire(std::move(screen));
  }
  DestroyUnloaded();
}

Application& App() {
  static Application application;
  return application;
}

}  // namespace corvalin
