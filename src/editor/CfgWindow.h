// The controls of the window that shows and changes one configuration file.
//
// `LstCfg` has the current element's values, one row for each parameter, and each row's signs as
// its item data. `LstTitle` has beside it the rows' titles. A view shows number, title, value and
// signs of a row side by side.
#pragma once

#include "config/ConfigTables.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tintbench::editor {

// The signs of a row of `LstCfg`, added up as its item data.
enum RowSign : int {
  kRowEmpty = 1,    // nothing stands in the line
  kRowChanged = 2,  // changed since the file was loaded
  kRowDiffers = 4,  // from the file compared with
};

// The tag of an element's tab if the element is removed; a view strikes its caption out.
inline constexpr const char* kRemovedTab = "removed";

// The colour of an element's list while the element is removed.
inline constexpr ui::Colour kRemovedColour{0x0000FF};

// What the elements of `LblCurr` tell of the current row.
enum CurrentRow : int { kCurrTitle = 0, kCurrNumber = 1, kCurrValue = 2, kCurrRange = 3 };

struct CfgWindow : ui::Form {
  CfgWindow();

  ui::Frame FrmDT{*this, "FrmDT"};
  ui::ControlArray<ui::Label> LblDateTime{FrmDT, "LblDateTime", 2};  // date, time
  ui::Frame FrmSlv{*this, "FrmSlv"};
  ui::Label LblSlv{FrmSlv, "LblSlv"};
  ui::ControlArray<ui::Button> CmdSlv{FrmSlv, "CmdSlv", 2};  // down, up

  // The tables of one group: the strips stand in one another's place, and one is visible.
  ui::Frame FrmTabStripCfg{*this, "FrmTabStripCfg"};
  ui::ControlArray<ui::OptionButton> OptCfg{FrmTabStripCfg, "OptCfg", config::kConfigGroupCount};
  ui::ControlArray<ui::TabStrip> TabStripCfg{FrmTabStripCfg, "TabStripCfg",
                                             config::kConfigGroupCount};
  // All tables of all groups at once, each with its caption and, if it may have several, the count
  // of its elements: "Motors (4)". A row's item data is its group, 0 to 2. A click goes there.
  ui::ListBox LstTables{*this, "LstTables"};

  ui::Frame FrmTable{*this, "FrmTable"};
  ui::Frame FrmTabStripElem{FrmTable, "FrmTabStripElem"};
  ui::TabStrip TabStripElem{FrmTabStripElem, "TabStripElem"};
  // A number typed here goes to the element that has it, at each key that makes one; Enter leads
  // on to the list. Hidden in tables with one element.
  ui::Label LblElem{FrmTabStripElem, "LblElem"};
  ui::TextBox TxtElem{FrmTabStripElem, "TxtElem"};
  ui::Button CmdAdd{FrmTable, "CmdAdd"};
  ui::Button CmdRemoveResume{FrmTable, "CmdRemoveResume"};

  ui::Frame Frame2{FrmTable, "Frame2"};
  ui::ListBox LstCfg{Frame2, "LstCfg"};
  ui::ListBox LstTitle{Frame2, "LstTitle"};  // no row of it is ever selected
  ui::Frame Frame3{FrmTable, "Frame3"};
  ui::Frame Frame4{FrmTable, "Frame4"};
  ui::Frame FrmNum{FrmTable, "FrmNum"};
  ui::ControlArray<ui::Label> LblCurr{
      [this](int what) -> ui::Container& {
        return what == kCurrNumber ? FrmNum : what == kCurrValue ? Frame4 : Frame3;
      },
      "LblCurr", 4};
  ui::Label LblUnit{Frame3, "LblUnit"};  // "second/10"; empty for a parameter without a unit
  ui::Label LblTot{FrmNum, "LblTot"};
  ui::Button CmdEdit{Frame4, "CmdEdit"};

  ui::Button CmdSave{*this, "CmdSave"};
  ui::Frame FrmWplease{*this, "FrmWplease"};
  ui::Label LblWplease{FrmWplease, "LblWplease"};

  // What the operator should know and isn't asked: how many changes aren't saved, and what became
  // of the last step if that can't be seen. Both are empty most of the time.
  ui::Label LblUnsaved{*this, "LblUnsaved"};
  ui::Label LblNotice{*this, "LblNotice"};
  ui::Button CmdUndo{*this, "CmdUndo"};
  ui::Button CmdRedo{*this, "CmdRedo"};

  // Three panels of which at most one is visible, in one place. The buttons open and close them.
  // The rows of their lists have a tab between their cells. A row is gone to by Enter or a double
  // click.
  ui::Button CmdFind{*this, "CmdFind"};
  ui::Button CmdChanges{*this, "CmdChanges"};
  ui::Button CmdCompare{*this, "CmdCompare"};

  ui::Frame FrmFind{*this, "FrmFind"};
  ui::TextBox TxtFind{FrmFind, "TxtFind"};
  ui::ListBox LstFind{FrmFind, "LstFind"};  // where, what of it, the text found
  ui::Label LblFind{FrmFind, "LblFind"};    // how many

  ui::Frame FrmChanges{*this, "FrmChanges"};
  ui::ListBox LstChanges{FrmChanges, "LstChanges"};   // where, what of it, before, now
  ui::Button CmdTakeBack{FrmChanges, "CmdTakeBack"};  // the selected one

  ui::Frame FrmCompare{*this, "FrmCompare"};
  ui::Button CmdCompareFile{FrmCompare, "CmdCompareFile"};
  ui::Label LblCompare{FrmCompare, "LblCompare"};     // the other file, and how many differ
  ui::ListBox LstCompare{FrmCompare, "LstCompare"};   // where, what of it, here, there
  ui::Button CmdTakeOver{FrmCompare, "CmdTakeOver"};  // the selected one's value
};

}  // namespace tintbench::editor
