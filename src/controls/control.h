// What every control of a screen has in common: a name, a place, whether it can be seen and used,
// a caption, and one observer (the skin). A control knows no skin and no toolkit.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vistaplot {

class Control;

enum class ControlKind {
  kLabel,
  kTextBox,
  kCheckBox,
  kOptionGroup,
  kComboBox,
  kListBox,
  kButton,
  kMenuItem,
  kPanel,
  kFrame,
  kScrollBar,
  kTimer,
  kGrid,
  kChartBox
};

/// The kind's name as scripts show it, e.g. "TextBox".
std::string_view KindName(ControlKind kind);

/// What of a control has changed; its description counts as its caption.
enum class ControlAspect {
  kVisible,
  kEnabled,
  kPlace,
  kCaption,
  kValue,
  kEntries,
  kPointed,  ///< the row that a chart is pointed to
  kRepaint
};

class ControlObserver {
 public:
  virtual ~ControlObserver() = default;
  virtual void ControlChanged(Control& control, ControlAspect aspect) = 0;
};

/// Left, top, width and height in twips (kTwipsPerPixel), relative to the
/// form. A control may lack any of them: a menu item has none.
struct Place {
  std::optional<float> Left;
  std::optional<float> Top;
  std::optional<float> Width;
  std::optional<float> Height;

  bool operator==(const Place&) const = default;
};

class Control {
 public:
  explicit Control(ControlKind kind) : kind_(kind) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind Kind() const { return kind_; }

  /// The agreed name, without the index of a control array.
  const std::string& Name() const { return name_; }
  std::optional<int> Index() const { return index_; }  ///< position in a control array
  void SetName(std::string_view name, std::optional<int> index = {});

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption);

  /// What assistive tools call a control that has no caption, where no label beside it says so;
  /// empty for most.
  const std::string& Description() const { return description_; }
  void SetDescription(std::string_view description);

  /// The heading of the manual's section about the control, or about what stands in it; empty where
  /// its container's holds, or none.
  std::string_view HelpTopic() const;
  /// @param topic  lives as long as the control
  void SetHelpTopic(std::string_view topic) { help_topic_ = topic; }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  /// The frame, panel or menu that the control stands in; null for one directly on its form.
  Control* Container() const { return container_; }
  void SetContainer(Control* container) { container_ = container; }

  /// True when a user could see the control, its containers included.
  bool Shown() const;
  /// True when a user could work it: shown and enabled, its containers included.
  bool Usable() const;

  const Place& Where() const { return place_; }
  void SetPlace(const Place& place);

  /// Asks the skin to paint the control now.
  void Refresh() { Tell(ControlAspect::kRepaint); }

  void SetObserver(ControlObserver* observer) { observer_ = observer; }

 protected:
  void Tell(ControlAspect aspect) {
    if (observer_ != nullptr) observer_->ControlChanged(*this, aspect);
  }

 private:
  ControlKind kind_;
  std::string name_;
  std::optional<int> index_;
  std::string caption_;
  std::string description_;
  std::string_view help_topic_;
  bool visible_ = true;
  bool enabled_ = true;
  Control* container_ = nullptr;
  Place place_;
  ControlObserver* observer_ = nullptr;
};

}  // namespace vistaplot
