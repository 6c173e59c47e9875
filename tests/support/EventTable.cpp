#include "support/EventTable.h"

#include <algorithm>
#include <array>
#include <memory>

#include "platform/text/Text.h"
#include "support/journey/JourneyText.h"

namespace bravona {

namespace {

// Every event of its controls goes into the log.
class frmEventi final : public Form {
public:
    frmEventi(Desktop& desktop, std::vector<std::string>& log) : Form(desktop, "frmEventi", "Eventi"), log_(log)
    {
        menuBar = std::make_unique<Menu>();
        Menu& menu = menuBar->add("mnuMenu", "&Menu");
        menu.add("mnuVoce", "&Voce", [this] { say("mnuVoce click"); }).shortcut = "Ctrl+J";

        txtNote.multiLine = true;
        txtNote.lines = 3;
        txtBloccata.setText("fissa");
        txtBloccata.setLocked(true);
        txtCorta.maxLength = 3;
        spnSu.buddy = &txtCifre;
        for (const char* item : {"alfa", "beta", "gamma"}) {
            cmbFissa.addItem(item);
            cmbLibera.addItem(item);
            lstLista.addItem(item);
        }
        lvwRighe.setColumns({{"Nome", "", 1440, Align::left}, {"Numero", "", 1440, Align::right}});
        lvwRighe.sortable = true;
        lvwRighe.checkBoxes = true;
        for (const auto& [name, number] : {std::pair("uno", "10"), std::pair("due", "9")}) {
            ListRow row;
            row.text = name;
            row.sub.push_back({number, ""});
            lvwRighe.add(std::move(row));
        }
        tvwAlbero.add("", "a", "Anna");
        tvwAlbero.add("a", "b", "Berta");
        dtpData.setDate(*Date::fromYmd(2004, 1, 15));

        watch("txtUno", txtUno);
        watch("txtCifre", txtCifre);
        watch("spnSu", spnSu);
        watch("txtRifiuta", txtRifiuta);
        watch("txtCorta", txtCorta);
        watch("txtBloccata", txtBloccata);
        watch("txtNote", txtNote);
        watch("cmbFissa", cmbFissa);
        watch("cmbLibera", cmbLibera);
        watch("lstLista", lstLista);
        watch("lvwRighe", lvwRighe);
        watch("tvwAlbero", tvwAlbero);
        watch("dtpData", dtpData);
        watch("chkSpunta", chkSpunta);
        watch("optScelta", optScelta[0], 0);
        watch("optScelta", optScelta[1], 1);
        add("tabPagine", tabPagine);
        watch("txtPagina", txtPagina[0], 0);
        watch("txtPagina", txtPagina[1], 1);
        watch("picFoto", picFoto);
        watch("vsbBarra", vsbBarra);
        watch("hsbBarra", hsbBarra);
        watch("cmdOk", cmdOk);
        watch("cmdAnnulla", cmdAnnulla);
        watch("cmdTerzo", cmdTerzo);
        for (TextBox* box : {&txtUno, &txtCifre, &txtRifiuta, &txtCorta, &txtNote}) {
            box->onChange = [this, box] { say(box->fullName() + " = " + box->text()); };
        }
        txtCifre.onKeyPress = [this](char32_t& key) {
            if (key >= 32 && (key < U'0' || key > U'9')) {
                say("txtCifre drops");
                key = 0;
            }
        };
        txtUno.onKeyPress = [](char32_t& key) { key = key == U'q' ? U'Q' : key; };
        txtUno.onKeyDown = [this](KeyEvent& key) {
            if (key.key == Key::f3) {
                say("txtUno F3");
                key.drop();
            }
        };
        txtRifiuta.onLostFocus = [this] {
            say("txtRifiuta lost");
            if (txtRifiuta.text() == "x") {
                say("refused");
                txtRifiuta.setFocus();
            }
        };
        cmbLibera.onChange = [this] { say("cmbLibera = " + cmbLibera.text()); };
        dtpData.onChange = [this] { say("dtpData = " + dtpData.date().text()); };
        picFoto.boxWidth = picFoto.boxHeight = 40;
        picFoto.verticalBar = &vsbBarra;
        picFoto.horizontalBar = &hsbBarra;
        for (ScrollBar* bar : {&vsbBarra, &hsbBarra}) {
            bar->setRange(0, 100);
            bar->onChange = [this, bar] { say(bar->fullName() + " = " + bar->shownText()); };
        }
        tabPagine.onChange = [this](int left) {
            say("tabPagine " + std::to_string(left) + " to " + std::to_string(tabPagine.tab()));
        };
        lvwRighe.onItemClick = [this](std::size_t row) { say("lvwRighe row " + lvwRighe.row(row).text); };
        lvwRighe.onItemCheck = [this](std::size_t row) {
            say("lvwRighe check " + lvwRighe.row(row).text + (lvwRighe.row(row).checked ? " on" : " off"));
        };
        lvwRighe.onColumnClick = [this](std::size_t column) {
            say("lvwRighe column " + std::to_string(column) + " first " + lvwRighe.row(0).text);
        };
        tvwAlbero.onNodeClick = [this](int node) {
            say("tvwAlbero node " + tvwAlbero.nodes()[static_cast<std::size_t>(node)].key);
        };
        setLayout(layout::column(
            {layout::form({layout::line("&Uno", layout::of(txtUno)),
                           layout::line("&Cifre", layout::row({layout::of(txtCifre), layout::of(spnSu)})),
                           layout::line("Rifiuta", layout::of(txtRifiuta)), layout::line("Corta", layout::of(txtCorta)),
                           layout::line("Bloccata", layout::of(txtBloccata)), layout::line("Note", layout::of(txtNote)),
                           layout::line("&Fissa", layout::of(cmbFissa)), layout::line("Libera", layout::of(cmbLibera)),
                           layout::line("Data", layout::of(dtpData))}),
             layout::row({layout::of(lstLista), layout::of(lvwRighe), layout::of(tvwAlbero)}),
             layout::row({layout::of(chkSpunta), layout::of(optScelta[0]), layout::of(optScelta[1])}),
             layout::tabs(tabPagine, {layout::of(txtPagina[0]), layout::of(txtPagina[1])}),
             layout::row({layout::of(picFoto), layout::of(vsbBarra), layout::of(hsbBarra)}),
             layout::rowEnd({layout::of(cmdOk), layout::of(cmdAnnulla), layout::of(cmdTerzo)})}));
        setDefaultButton(&cmdOk);
        setCancelButton(&cmdAnnulla);
    }

    void onKeyDown(KeyEvent& event) override
    {
        if (event.key == Key::f4) {
            say("form F4");
            event.drop();
        }
    }
    bool onQueryUnload(CloseCause cause) override
    {
        say(cause == CloseCause::person ? "query person" : "query code");
        return !refuses;
    }
    void onUnload() override { say("unload"); }

    TextBox txtUno, txtCifre, txtRifiuta, txtCorta, txtBloccata, txtNote;
    SpinButton spnSu;
    ComboBox cmbFissa, cmbLibera{true};
    ListBox lstLista;
    ListView lvwRighe;
    TreeView tvwAlbero;
    DatePicker dtpData;
    CheckBox chkSpunta{"&Spunta"};
    std::array<OptionButton, 2> optScelta{OptionButton("Prima"), OptionButton("S&econda")};
    TabControl tabPagine{{"Pagina &1", "Pagina &2"}};
    std::array<TextBox, 2> txtPagina;
    PictureBox picFoto;
    ScrollBar vsbBarra{false}, hsbBarra{true};
    Button cmdOk{"&Ok"}, cmdAnnulla{"&Annulla"}, cmdTerzo{"&Terzo"};
    bool refuses = false;

private:
    void say(std::string what) { log_.push_back(std::move(what)); }

    void watch(const std::string& name, Control& control, int index = -1)
    {
        add(name, control, index);
        control.onGotFocus = [this, &control] { say(control.fullName() + " got"); };
        control.onLostFocus = [this, &control] { say(control.fullName() + " lost"); };
        control.onClick = [this, &control] { say(control.fullName() + " click " + control.shownText()); };
        control.onDblClick = [this, &control] { say(control.fullName() + " double"); };
    }

    std::vector<std::string>& log_;
};

std::string item(const Form& form, const std::string& name, const std::string& what)
{
    const Control* control = form.find(name);
    const auto& items = control->kind() == ControlKind::comboBox ? static_cast<const ComboBox*>(control)->items()
                                                                 : static_cast<const ListBox*>(control)->items();
    const auto place = std::find_if(items.begin(), items.end(), [&](const ListItem& one) { return one.text == what; });
    return std::to_string(place - items.begin());
}

void doGesture(JourneyHost& host, frmEventi& form, const std::string& gesture)
{
    const std::vector<std::string> words = split(gesture, ' ');
    const std::string& verb = words[0];
    const std::string name = words.size() > 1 ? words[1] : std::string();
    const std::string text = words.size() > 2 ? gesture.substr(verb.size() + name.size() + 2) : std::string();
    const auto position = [&] { return static_cast<std::size_t>(std::stoi(text)); };
    const auto keys = [&](const std::string& what) {
        for (const char32_t character : toCodePoints(what)) {
            host.key(KeyEvent{.key = Key::character, .character = character});
        }
    };
    Desktop& desktop = form.desktop();
    if (verb == "key") {
        host.key(*parseKey(name));
        return;
    }
    if (verb == "paste") {
        host.paste(toCodePoints(replaceAll(gesture.substr(6), "\\n", "\n")));
        return;
    }
    if (verb == "close") {
        host.closeWindow(form);
        return;
    }
    if (verb == "refuse") {
        form.refuses = true;
        return;
    }
    if (verb == "menu") {
        host.menu(form, *form.menuBar->find(name));
        return;
    }
    Control& control = *form.find(name);
    if (verb == "type") {
        if (!control.hasFocus()) {
            host.focus(control);
        }
        keys(text);
    } else if (verb == "focus") {
        host.focus(control);
    } else if (verb == "press") {
        host.click(control);
    } else if (verb == "double") {
        host.doubleClick(control);
    } else if (verb == "choose") {
        host.chooseItem(control, std::stoi(item(form, name, text)));
    } else if (verb == "select") {
        host.selectRow(control, position());
    } else if (verb == "tick") {
        host.tick(static_cast<ListView&>(control), position());
    } else if (verb == "column") {
        host.clickColumn(control, position());
    } else if (verb == "node") {
        host.selectNode(static_cast<TreeView&>(control), std::stoi(text));
    } else if (verb == "tab") {
        host.chooseTab(static_cast<TabControl&>(control), std::stoi(text));
    } else if (verb == "date") {
        host.setDate(static_cast<DatePicker&>(control), *Date::parse(text));
    } else if (verb == "spin") {
        host.spin(static_cast<SpinButton&>(control), text == "up");
    } else if (verb == "wheel") {
        host.wheel(static_cast<PictureBox&>(control), std::stoi(text));
    } else if (verb == "set") {
        desktop.guard([&] { static_cast<TextBox&>(control).setText(text); });
    } else if (verb == "disable") {
        desktop.guard([&] { control.setEnabled(false); });
    } else if (verb == "hide") {
        desktop.guard([&] { control.setVisible(false); });
    }
}

constexpr std::array table{
    EventCase{"each key changes the text", "type txtUno ab", "txtUno = a;txtUno = ab"},
    EventCase{"a filter changes the key", "type txtUno q", "txtUno = Q"},
    EventCase{"a filter drops the key", "type txtCifre a1", "txtUno lost;txtCifre got;txtCifre drops;txtCifre = 1"},
    EventCase{"a field entered anew is typed over", "type txtUno ab;focus txtCifre;type txtUno c",
              "txtUno = a;txtUno = ab;txtUno lost;txtCifre got;txtCifre lost;txtUno got;txtUno = c"},
    EventCase{"typing goes on at the caret", "type txtUno ab;key Home;type txtUno c;key Delete",
              "txtUno = a;txtUno = ab;txtUno = cab;txtUno = cb"},
    EventCase{"deleting backwards changes the text", "type txtUno ab;key Backspace;key Backspace;key Backspace",
              "txtUno = a;txtUno = ab;txtUno = a;txtUno = "},
    EventCase{"code that sets a text changes it once", "set txtUno ab;set txtUno ab", "txtUno = ab"},
    EventCase{"the caret stays at the end when code sets the text", "type txtUno a;set txtUno xy;type txtUno z",
              "txtUno = a;txtUno = xy;txtUno = xyz"},
    EventCase{"a pasted text passes the filter", "focus txtCifre;paste a1b2\\n3",
              "txtUno lost;txtCifre got;txtCifre drops;txtCifre drops;txtCifre = 12 3"},
    EventCase{"no more is typed than the field takes", "type txtCorta abcd",
              "txtUno lost;txtCorta got;txtCorta = a;txtCorta = ab;txtCorta = abc"},
    EventCase{"a read-only field is entered and not changed", "type txtBloccata a;key Delete",
              "txtUno lost;txtBloccata got"},
    EventCase{"Enter in a field of several lines is a line break", "type txtNote a;key Enter",
              "txtUno lost;txtNote got;txtNote = a;txtNote = a\n"},
    EventCase{"a spin arrow changes its field, to be typed over", "spin spnSu up;spin spnSu up;type txtCifre 7",
              "txtCifre = 1;txtUno lost;txtCifre got;txtCifre = 2;txtCifre = 7"},
    EventCase{"Tab passes over the read-only field", "focus txtCorta;key Tab",
              "txtUno lost;txtCorta got;txtCorta lost;txtNote got"},
    EventCase{"Shift and Tab go back", "focus txtCifre;key Shift+Tab",
              "txtUno lost;txtCifre got;txtCifre lost;txtUno got"},
    EventCase{"the form sees a key before the control", "key F4;key F3", "form F4;txtUno F3"},
    EventCase{"Enter is the default button, the field left first", "key Enter",
              "txtUno lost;cmdOk click &Ok;txtUno got"},
    EventCase{"Escape is the cancel button", "key Escape", "txtUno lost;cmdAnnulla click &Annulla;txtUno got"},
    EventCase{"Enter on another button is that button", "focus cmdTerzo;key Enter",
              "txtUno lost;cmdTerzo got;cmdTerzo click &Terzo"},
    EventCase{"a click leaves the field and takes the focus", "press cmdTerzo",
              "txtUno lost;cmdTerzo got;cmdTerzo click &Terzo"},
    EventCase{"Space presses a button", "focus cmdTerzo;key Space", "txtUno lost;cmdTerzo got;cmdTerzo click &Terzo"},
    EventCase{"a mnemonic presses a button", "key Alt+t", "txtUno lost;cmdTerzo got;cmdTerzo click &Terzo"},
    EventCase{"a mnemonic of a label goes to its field", "key Alt+c", "txtUno lost;txtCifre got"},
    EventCase{"a mnemonic ticks a box", "key Alt+s", "txtUno lost;chkSpunta got;chkSpunta click 1"},
    EventCase{"a mnemonic turns a page", "key Alt+2", "txtUno lost;tabPagine 0 to 1;txtPagina[1] got"},
    EventCase{"a disabled button has no mnemonic and no click", "disable cmdTerzo;press cmdTerzo;key Alt+t", ""},
    EventCase{"a menu command leaves the field first", "menu mnuVoce", "txtUno lost;mnuVoce click;txtUno got"},
    EventCase{"a shortcut is its menu command", "key Ctrl+j", "txtUno lost;mnuVoce click;txtUno got"},
    EventCase{"a handler that takes the focus back stops the click", "type txtRifiuta x;press cmdTerzo",
              "txtUno lost;txtRifiuta got;txtRifiuta = x;txtRifiuta lost;refused;txtRifiuta got"},
    EventCase{"a handler that takes the focus back stops Tab", "type txtRifiuta x;key Tab",
              "txtUno lost;txtRifiuta got;txtRifiuta = x;txtRifiuta lost;refused;txtRifiuta got"},
    EventCase{"a handler that takes the focus back stops the default button", "type txtRifiuta x;key Enter",
              "txtUno lost;txtRifiuta got;txtRifiuta = x;txtRifiuta lost;refused;txtRifiuta got"},
    EventCase{"the focus goes on from a control that is disabled", "disable txtUno", "txtUno lost;txtCifre got"},
    EventCase{"the focus goes on from a control that is hidden", "hide txtUno", "txtUno lost;txtCifre got"},
    EventCase{"a check box turns at each click", "press chkSpunta;press chkSpunta",
              "txtUno lost;chkSpunta got;chkSpunta click 1;chkSpunta click 0"},
    EventCase{"Space ticks a check box", "focus chkSpunta;key Space", "txtUno lost;chkSpunta got;chkSpunta click 1"},
    EventCase{
        "an option is clicked once", "press optScelta[0];press optScelta[1];press optScelta[1]",
        "txtUno lost;optScelta[0] got;optScelta[0] click 1;optScelta[0] lost;optScelta[1] got;optScelta[1] click 1"},
    EventCase{
        "arrows choose among options", "press optScelta[0];key Down",
        "txtUno lost;optScelta[0] got;optScelta[0] click 1;optScelta[0] lost;optScelta[1] got;optScelta[1] click 1"},
    EventCase{"a combo clicks when its item changes", "choose cmbFissa beta;choose cmbFissa beta",
              "txtUno lost;cmbFissa got;cmbFissa click beta"},
    EventCase{"arrows choose in a combo", "focus cmbFissa;key Down;key Down;key Up",
              "txtUno lost;cmbFissa got;cmbFissa click alfa;cmbFissa click beta;cmbFissa click alfa"},
    EventCase{"a combo takes typed text", "type cmbLibera zz",
              "txtUno lost;cmbLibera got;cmbLibera = z;cmbLibera = zz"},
    EventCase{"a list clicks when its item changes", "choose lstLista gamma;key Up",
              "txtUno lost;lstLista got;lstLista click gamma;lstLista click beta"},
    EventCase{"a row is clicked, ticked and walked", "select lvwRighe 0;key Down;tick lvwRighe 0;key Space",
              "txtUno lost;lvwRighe got;lvwRighe row uno;lvwRighe row due;lvwRighe check uno on;lvwRighe check due on"},
    EventCase{"a heading sorts numbers as numbers, up and down", "column lvwRighe 1;column lvwRighe 1",
              "txtUno lost;lvwRighe got;lvwRighe column 1 first due;lvwRighe column 1 first uno"},
    EventCase{"a double click selects and then doubles", "select lvwRighe 1;double lvwRighe",
              "txtUno lost;lvwRighe got;lvwRighe row due;lvwRighe double"},
    EventCase{"a node below its parent is clicked", "node tvwAlbero 1", "txtUno lost;tvwAlbero got;tvwAlbero node b"},
    EventCase{"a page is turned after the field is left", "tab tabPagine 1",
              "txtUno lost;tabPagine 0 to 1;txtPagina[1] got"},
    EventCase{"a date is set once", "date dtpData 31/01/2004;date dtpData 31/01/2004",
              "txtUno lost;dtpData got;dtpData = 31/01/2004"},
    EventCase{"a date is typed", "focus dtpData;type dtpData 01022004", "txtUno lost;dtpData got;dtpData = 01/02/2004"},
    EventCase{"keys move a bar along its own way",
              "focus vsbBarra;key Down;key Right;key PageDown;key End;key Down;key Up;key PageUp;key Home",
              "txtUno lost;vsbBarra got;vsbBarra = 5;vsbBarra = 25;vsbBarra = 100;vsbBarra = 95;vsbBarra = 75;"
              "vsbBarra = 0"},
    EventCase{"arrows left and right move a bar that lies", "focus hsbBarra;key Right;key Down;key Right;key Left",
              "txtUno lost;hsbBarra got;hsbBarra = 5;hsbBarra = 10;hsbBarra = 5"},
    EventCase{"Tab goes to a bar and from it", "focus vsbBarra;key Tab;key Tab",
              "txtUno lost;vsbBarra got;vsbBarra lost;hsbBarra got;hsbBarra lost;cmdOk got"},
    EventCase{"the wheel over a picture moves the bar there is",
              "wheel picFoto -3;wheel picFoto 1;hide vsbBarra;"
              "wheel picFoto -1;hide hsbBarra;wheel picFoto -1",
              "vsbBarra = 15;vsbBarra = 10;hsbBarra = 5"},
    EventCase{"closing leaves the field, asks and unloads", "close", "txtUno lost;query person;unload"},
    EventCase{"a refused close keeps the window", "refuse;close", "txtUno lost;query person;txtUno got"},
};

}  // namespace

std::span<const EventCase> eventTable()
{
    return table;
}

std::string runEvents(JourneyHost& host, const EventCase& one)
{
    Transcript transcript;
    std::vector<std::string> log;
    Desktop& desktop = host.open(transcript);
    host.setNextStep([] { return false; });
    desktop.screens().add("frmEventi", [&] { return std::make_unique<frmEventi>(desktop, log); });
    auto& form = desktop.screens().as<frmEventi>("frmEventi");
    desktop.guard([&] { form.show(); });
    log.clear();
    for (const std::string& gesture : split(one.gestures, ';')) {
        doGesture(host, form, trim(gesture));
    }
    std::string events;
    for (const std::string& event : log) {
        events += (events.empty() ? "" : ";") + event;
    }
    host.close();
    return events;
}

}  // namespace bravona
