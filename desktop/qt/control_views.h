// Makes the widget of each kind of control: one function for each kind. A form window calls MakeView for every control
// of its layouts, and calls `apply` of the view whenever the control reports a change.
#pragma once

#include <QWidget>
#include <functional>

#include "forms/control.h"

namespace discwright::desktop {

struct View {
  QWidget* widget = nullptr;                      // belongs to its parent widget
  std::function<void(forms::Facet facet)> apply;  // shows the new state of the control
};

View MakeLabelView(forms::Label& label, QWidget* parent);
View MakeMarkView(forms::Label& mark, QWidget* parent);  // a label in a symbol font: a tick or a cross
View MakeLinkView(forms::Link& link, QWidget* parent);
View MakeButtonView(forms::CommandButton& button, QWidget* parent);
View MakeCheckBoxView(forms::CheckBox& box, QWidget* parent);
View MakeOptionView(forms::OptionButton& option, QWidget* parent);
View MakeFieldView(forms::TextBox& field, QWidget* parent);  // a text box of one line
View MakeTextView(forms::TextBox& text, QWidget* parent);    // a text box of several lines
View MakeProgressView(forms::ProgressBar& bar, QWidget* parent);
View MakePictureView(forms::Picture& picture, QWidget* parent);

// Makes the view of a control of any of these kinds. The view already shows the control's present state.
View MakeView(forms::Control& control, QWidget* parent);

// The caption with "&" before its access key, as Qt's widgets take it.
QString CaptionWithKey(const forms::Captioned& control);

}  // namespace discwright::desktop
