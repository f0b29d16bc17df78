// The one application object: it owns the screen controllers, loads each on
// first use (running its load routine) and unloads it, as the screens are
// loaded, shown, hidden and unloaded. Controllers reach each other only
// through it and through the run state.
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace corvalin {

class Screen;
class frmTemplate;
class frmColumns;
class frmHeaders;
class frmSlf;
class frmSlfRecord;
class frmLocation;
class frmLocationRecord;

class Application {
 public:
  Application();
  ~Application();

  // Each accessor loads its screen when it is not loaded.
  frmTemplate& Template();
  frmColumns& Columns();
  frmHeaders& Headers();
  frmSlf& Slf();
  frmSlfRecord& SlfRecord();
  frmLocation& Location();
  frmLocationRecord& LocationRecord();

  bool TemplateLoaded() const { return template_ != nullptr; }
  bool ColumnsLoaded() const { return columns_ != nullptr; }
  bool HeadersLoaded() const { return headers_ != nullptr; }
  bool SlfLoaded() const { return slf_ != nullptr; }
  bool SlfRecordLoaded() const { return slfRecord_ != nullptr; }
  bool LocationLoaded() const { return location_ != nullptr; }
  bool LocationRecordLoaded() const { return locationRecord_ != nullptr; }

  void UnloadTemplate();
  void UnloadColumns();
  void UnloadHeaders();
  void UnloadSlf();
  void UnloadSlfRecord();
  void UnloadLocation();
  void UnloadLocationRecord();
  // Unloads every screen (a fresh start, for tests).
  void UnloadAll();

  // A view layer that wants to draw each screen registers here; it is called
  // right after a screen is made, before its load routine runs.
  std::function<void(Screen&)> ScreenCreated;

  // Opens a dialog modally: it is shown, and RunModal (a view's modal loop,
  // or a test's script pressing the dialog's buttons) runs until the dialog
  // unloads itself. A dialog still open afterwards, or with no one to run it,
  // ends as cancelled.
  void ShowModal(Screen& dialog);
  std::function<void(Screen&)> RunModal;

 private:
  template <class T>
  T& Load(std::unique_ptr<T>& slot);
  void Retire(std::unique_ptr<Screen> screen);

  std::unique_ptr<frmTemplate> template_;
  std::unique_ptr<frmColumns> columns_;
  std::unique_ptr<frmHeaders> headers_;
  std::unique_ptr<frmSlf> slf_;
  std::unique_ptr<frmSlfRecord> slfRecord_;
  std::unique_ptr<frmLocation> location_;
  std::unique_ptr<frmLocationRecord> locationRecord_;
  // An unloaded screen may still be running the event that unloaded it, so it
  // is kept until the next full unload.
  std::vector<std::unique_ptr<Screen>> retired_;
};

Application& App();

}  // namespace corvalin
