// Where the Assign Functions dialog's columns sit. The dialog was drawn for a fixed font; its
// columns now open up wherever a text it must show (a device label, a row caption, a function or
// colour name) is wider than the room that design left, and the window grows to hold them.
#pragma once

namespace drav {

// The widest texts of each column, in pixels of the dialog's font.
struct DialogTextWidths {
  int device = 0;         // a label of the device pop-up
  int caption = 0;        // a function or slider row caption, of any model
  int colourCaption = 0;  // a caption of a row that also has a colour pop-up
  int functionItem = 0;   // an item of any function row's list
  int colourItem = 0;     // an item of the colour list
};

// Offsets from the window's left edge, and the window's width.
struct DialogColumns {
  int deviceLeft = 10;
  int deviceRight = 130;
  int captionLeft = 150;
  int captionRight = 250;
  int colourLeft = 230;
  int colourRight = 300;
  int functionLeft = 310;
  int functionRight = 610;
  int sliderShift = 0;  // the slider rows move right with the function column
  int windowWidth = 650;
};

// The designed layout when every text fits it; `requestedWidth` is the least window width.
DialogColumns LayoutDialogColumns(const DialogTextWidths& widths, int requestedWidth);

}  // namespace drav
