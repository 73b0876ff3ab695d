#include "desktop/demo_form.h"

#include "data/text.h"

namespace quillet {

DemoForm::DemoForm(OpenForms& openForms, std::string formName)
    : Form(openForms, std::move(formName)) {
  setCaption("Trial Balance of Asha Traders for the Period 01/04/2008 - 31/03/2009");
  size.width = 0.8;
  size.height = 0.8;
  fillGrid();
  vsflist.setColumns({{.heading = "Name", .width = 30, .stretch = true}});
  for (const char* ledger : {"Bank of India", "Cash in Hand", "Capital", "Rent", "Salaries"}) {
    vsflist.addRow({ledger});
  }
  vsflist.setDropOf(txtname);
  vsflist.setVisible(false);
  for (const char* group : {"Bank Accounts", "Capital Account", "Sundry Debtors"}) {
    cbogroup.addItem(group);
  }
  for (const char* year : {"2007-08", "2008-09", "2009-10"}) lstyears.addItem(year);
  cmdmode[1].setChosen(true);
  mnuyrs[0].setChecked(true);
  txtamount.setRightAligned(true);
  txttotal.setRightAligned(true);
  txttotal.setLocked(true);
  txttotal.setText("1,23,456.00");
  mskdate.setText("01/04/####");
  lblhint.setQuiet(true);
  optside[0].setChecked(true);
  fampage.setVisible(false);

  for (Control* control : controls()) follow(*control);
  txtname.GotFocus = [this] {
    note("got txtname");
    vsflist.setVisible(true);
  };
  txtname.LostFocus = [this] {
    note("lost txtname");
    vsflist.setVisible(false);
  };
  txtname.Validate = [this](bool& cancel) { cancel = keepFocus; };
  // Like the validating boxes: capitals, no digits; Enter goes on.
  txtname.KeyPress = [this](Key& key) {
    if (key == keys::Enter) {
      key = keys::none;
      focusNext();
    } else if (key >= U'0' && key <= U'9') {
      key = keys::none;
    } else if (keys::typesText(key)) {
      key = upperCase(key);
    }
  };
  txtname.KeyDown = [this](Key& key) {
    if (key != keys::Up && key != keys::Down) return;
    vsflist.handleKey(key);
    key = keys::none;
  };
  vsflist.DblClick = [this] {
    note("picked " + vsflist.cell(vsflist.current(), 0));
    txtname.setText(vsflist.cell(vsflist.current(), 0));
  };
  vsf.Popup = [this] { note("popup " + std::to_string(vsf.current())); };
  vsf.AfterEdit = [this](int row, int column) {
    note("edited " + std::to_string(row) + " " + std::to_string(column));
  };
  cmdback.Click = [this] {
    fampage.setVisible(false);
    famlist.setVisible(true);
  };
}

void DemoForm::follow(Control& control) {
  const std::string what =
      control.name() + (control.index() < 0 ? "" : std::to_string(control.index()));
  control.Click = [this, what] { note("click " + what); };
  control.DblClick = [this, what] { note("dblclick " + what); };
  control.GotFocus = [this, what] { note("got " + what); };
}

void DemoForm::fillGrid() {
  vsf.setColumns({{.heading = "", .align = Align::center, .width = 2, .tick = true},
                  {.heading = "Particulars", .width = 20, .stretch = true},
                  {.heading = "Group", .width = 20, .editable = true},
                  {.heading = "Amount", .align = Align::right, .width = 16, .numeric = true},
                  {.heading = "Id", .hidden = true}});
  vsf.addRow({"1", "Rent", "Indirect Expenses", "12000.00", "7"});
  vsf.addRow({"", "Bank of India", "Bank Accounts", "250000.50", "3"});
  vsf.addRow({"", "Capital", "Capital Account", "1000000.00", "9"});
  vsf.addRow({"", "Salaries", "Indirect Expenses", "96000.00", "2"});
  vsf.addRow({"", "Total", "", "1358000.50", "0"});
  vsf.setRowEmphasised(5, true);
  vsf.setZebra(true);
  vsf.setCurrent(2);
}

LayoutItem DemoForm::layout() {
  const LayoutItem commands = column({item(cmdmode[0]), item(cmdmode[1]), item(cmdmode[2]), gap()});
  const LayoutItem entry =
      row({field("&Name", txtname, 30, 2), field("A&mount", txtamount, 16), item(vsflist)});
  const LayoutItem list = framed(famlist, {item(vsf, 1), entry}, 1);
  const LayoutItem page = framed(fampage, {item(cmdback)});
  const LayoutItem settings =
      framed(famset, {field("&Date", mskdate), field("&Group", cbogroup, 22),
                      field("&Years", lstyears), item(chkall),
                      row({item(optside[0]), item(optside[1])}), field("Total", txttotal, 16)});
  return column({row({commands, stack({list, page}), settings}, 1), item(lblhint)});
}

}  // namespace quillet
