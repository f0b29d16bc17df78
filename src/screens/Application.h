// The one application object: it owns the screen controllers, loads each on
// first use (running its load routine) and unloads it, as the screens are
// loaded, shown, hidden and unloaded. Controllers reach each other only
// through it and through the run state. It keeps the views up to date: after
// each event the person causes, every loaded screen whose drawn state changed
// tells its view so; a screen unloaded during an event lets go of its rows
// and its database at once and is destroyed, with its view, when the
// outermost event has ended.
#pragma once

#include <functional>
#include <memory>
#include <typeindex>
#include <vector>

namespace corvalin {

class Screen;
class frmTemplate;
class frmColumns;
class frmHeaders;
class frmTemplateName;
class frmDamageSeverity;
class frmSlf;
class frmSlfRecord;
class frmLocation;
class frmLocationRecord;
class frmConfigure;
class frmExcludeContaining;
class frmExcludeStartingWith;
class frmExcludeRange;
class frmReplaceAll;
class frmEditTemplateCommands;

class Application {
 public:
  Application();
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // Each accessor loads its screen when it is not loaded.
  frmTemplate& Template();
  frmColumns& Columns();
  frmHeaders& Headers();
  frmTemplateName& TemplateName();
  frmDamageSeverity& DamageSeverity();
  frmSlf& Slf();
  frmSlfRecord& SlfRecord();
  frmLocation& Location();
  frmLocationRecord& LocationRecord();
  frmConfigure& Configure();
  frmExcludeContaining& ExcludeContaining();
  frmExcludeStartingWith& ExcludeStartingWith();
  frmExcludeRange& ExcludeRange();
  frmReplaceAll& ReplaceAll();
  frmEditTemplateCommands& EditTemplateCommands();

  bool TemplateLoaded() const;
  bool ColumnsLoaded() const;
  bool HeadersLoaded() const;
  bool TemplateNameLoaded() const;
  bool DamageSeverityLoaded() const;
  bool SlfLoaded() const;
  bool SlfRecordLoaded() const;
  bool LocationLoaded() const;
  bool LocationRecordLoaded() const;
  bool ConfigureLoaded() const;
  bool ExcludeContainingLoaded() const;
  bool ExcludeStartingWithLoaded() const;
  bool ExcludeRangeLoaded() const;
  bool ReplaceAllLoaded() const;
  bool EditTemplateCommandsLoaded() const;

  void UnloadTemplate();
  void UnloadColumns();
  void UnloadHeaders();
  void UnloadTemplateName();
  void UnloadDamageSeverity();
  void UnloadSlf();
  void UnloadSlfRecord();
  void UnloadLocation();
  void UnloadLocationRecord();
  void UnloadConfigure();
  void UnloadExcludeContaining();
  void UnloadExcludeStartingWith();
  void UnloadExcludeRange();
  void UnloadReplaceAll();
  void UnloadEditTemplateCommands();
  // Unloads every screen and destroys them at once (a fresh start, for
  // tests, outside any event).
  void UnloadAll();

  // The view layer's factory: called right after a screen is made, before its
  // load routine runs, to attach a view to it.
  std::function<void(Screen&)> ViewFactory;

  // The one door of modal dialogs: the dialog is shown, and the Toolkit runs
  // its modal loop (the view's, in the desktop; the test's script, in tests)
  // until the dialog hides itself. A dialog still open afterwards, or with no
  // one to run it, ends as cancelled.
  void ShowModal(Screen& dialog);

  // Tells the view of each loaded screen what changed since it was last told.
  void DeliverChanges();
  // Destroys the screens unloaded since, with their views.
  void DestroyUnloaded();
  // How many unloaded screens wait for the end of the event.
  std::size_t UnloadedWaiting() const { return unloaded_.size(); }

 private:
  struct Slot {
    std::type_index type;
    std::unique_ptr<Screen> screen;
  };
  template <class T>
  T& Load();
  template <class T>
  bool Loaded() const;
  template <class T>
  void Unload();
  void Retire(std::unique_ptr<Screen> screen);

  // In order of loading, which is the order their views are told.
  std::vector<Slot> loaded_;
  std::vector<std::unique_ptr<Screen>> unloaded_;
};

Application& App();

}  // namespace corvalin
