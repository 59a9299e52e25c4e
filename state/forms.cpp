// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "state/forms.h"

#include <span>

#include "state/panel_texts.h"

namespace {

void setSize(Control& control, float twipsAcross, float twipsDown) {
    control.Width = twipsToUnitsAcross(twipsAcross);
    control.Height = twipsToUnitsDown(twipsDown);
}

void fixSize(Control& control, int twipsAcross, int twipsDown) {
    control.fixedWidth = twipsAcross / twipsPerPixel;
    control.fixedHeight = twipsDown / twipsPerPixel;
}

void put(Form& form, Control& control, Kind kind, Source source, int index = 0) {
    control.kind = kind;
    control.source = source;
    control.index = index;
    form.controls.push_back(&control);
}

void putImage(Form& form, Image& image, Source source, int index, Picture picture,
              float twipsAcross, float twipsDown) {
    put(form, image, Kind::image, source, index);
    image.picture = picture;
    setSize(image, twipsAcross, twipsDown);
}

void designCards(TableForm& g) {
    Form& form = g.frmscopa;
    for (int id = 0; id <= 40; ++id)
        putImage(form, g.carta(id), Source::carta, id, picture::face(id), 1200, 2232);
    putImage(form, g.dorso(0), Source::dorso, 0, picture::back, 1152, 1836);
    putImage(form, g.Mazzo, Source::Mazzo, 0, picture::back, 1152, 1836);
}

void designPictures(TableForm& g) {
    Form& form = g.frmscopa;
    for (int i = 1; i <= 10; ++i)
        putImage(form, g.Gorilla(i), Source::Gorilla, i, picture::gorilla(i), 1260, 1704);
    for (int i = 1; i <= 5; ++i)
        putImage(form, g.Mask2(i), Source::Mask2, i, picture::mask(i), 1800, 1356);
    for (int i = 0; i <= 1; ++i) {
        putImage(form, g.Verde(i), Source::Verde, i, picture::green, 384, 384);
        putImage(form, g.Rosso(i), Source::Rosso, i, picture::red, 384, 384);
    }
    putImage(form, g.Picture2, Source::Picture2, 0, picture::banner, 852, 384);
    putImage(form, g.Picture4, Source::Picture4, 0, picture::title, 8796, 1548);
}

void designChoice(TableForm& g) {
    constexpr const char* captions[] = {"Single Game", "11 points Game", "21 points Game"};
    for (int i = 0; i <= 2; ++i) {
        OptionButton& option = g.Option1(i);
        put(g.frmscopa, option, Kind::option, Source::Option1, i);
        setSize(option, 3012, 252);
        option.Caption = captions[i];
        option.BackColor = paleYellow;
        option.ForeColor = darkRed;
        option.Value = i == 0;
    }
    put(g.frmscopa, g.GO, Kind::button, Source::GO);
    setSize(g.GO, 1812, 360);
    g.GO.Caption = "GO";
}

void designPanel(TableForm& g, TextBox& panel, Source source, const char* name, std::string text) {
    put(g.frmscopa, panel, Kind::text, source);
    fixSize(panel, 4320, 2904);
    panel.BackColor = paleYellow;
    panel.name = name;
    panel.Text = std::move(text);
    panel.scrollBar = true;
}

void designPanels(TableForm& g) {
    designPanel(g, g.Text1, Source::Text1, "Game rules", panelText::english());
    designPanel(g, g.Text3, Source::Text3, "Regole del gioco", panelText::italian());
    designPanel(g, g.Text4, Source::Text4, "Information", panelText::information());
    fixSize(g.Text4, 2652, 1212);
    g.Text4.scrollBar = false;
}

void putMenu(Form& form, MenuEntry& entry, Source source, const char* caption) {
    entry.source = source;
    entry.Caption = caption;
    form.menu.push_back(&entry);
}

void putInBar(Form& form, MenuEntry& entry, Source source, const char* caption, bool heading) {
    putMenu(form, entry, source, caption);
    entry.topLevel = true;
    entry.heading = heading;
}

/// Entries of which one is checked, numbered from `index` on.
template <int Last>
void putChoices(Form& form, Array<MenuEntry, Last>& entries, Source source, int index,
                std::span<const char* const> captions) {
    for (const char* caption : captions) {
        MenuEntry& entry = entries(index);
        putMenu(form, entry, source, caption);
        entry.index = index++;
        entry.checkable = true;
    }
}

void designMenu(TableForm& g) {
    constexpr const char* rates[] = {"Low", "Middle", "High"};
    Form& form = g.frmscopa;
    putInBar(form, g.play_rate, Source::play_rate, "&Play rate", true);
    putChoices(form, g.velocità_gioco, Source::velocità_gioco, firstRate, rates);
    putInBar(form, g.istruzioni, Source::istruzioni, "&Game rules", true);
    putMenu(form, g.Italiano, Source::Italiano, "Italiano");
    putMenu(form, g.english, Source::english, "English");
    putInBar(form, g.Musica, Source::Musica, "&Music", true);
    putChoices(form, g.canzoni, Source::canzoni, noMelody, melodies);
    putInBar(form, g.menu_about, Source::menu_about, "&Info", false);
    putInBar(form, g.esci, Source::esci, "&QUIT", false);
}

void designDevices(TableForm& g) {
    g.Timer1.source = Source::Timer1;
    g.Timer1.interval = 80;
    g.Timer2.source = Source::Timer2;
    g.Timer2.interval = 120;
    g.MMC1.source = Source::MMC1;
    g.MMC1.deviceType = DeviceType::Sequencer;
    g.MMC1.FileName = "scopa.mid";
    g.MMCw.source = Source::MMCw;
    g.MMCw.deviceType = DeviceType::WaveAudio;
}

void designLabel(Form& form, Label& label, Source source, int index, float fontSize, Colour back) {
    put(form, label, Kind::label, source, index);
    label.FontSize = fontSize;
    label.BackColor = back;
}

}  // namespace

void designTable(TableForm& g, Backend& backend) {
    Form& form = g.frmscopa;
    form.backend = &backend;
    form.source = Source::frmscopa;
    form.Caption = "Corvalia - Velarda";
    form.name = "Table";
    BackColor(form, pureBlue);
    designCards(g);
    designPictures(g);
    designChoice(g);
    designPanels(g);
    designMenu(g);
    designDevices(g);
}

void designScore(ScoreForm& g, Backend& backend) {
    Form& form = g.frmscore;
    form.backend = &backend;
    form.source = Source::frmscore;
    form.Caption = "Corvalia - Scopa";
    form.name = "Score sheet";
    BackColor(form, 0x0080FF);
    form.controls.clear();
    g.LBLdat.all().clear();
    g.LBLtit = {};
    designLabel(form, g.LBLtit, Source::LBLtit, 0, 19.2f, paleYellow);
    g.LBLtit.Caption = "SCORE";
    g.LBLtit.ForeColor = darkRed;
    g.LBLtit.bold = true;
    // In front of the title, whose band they share, and behind the names below it.
    for (int i = 1; i <= 8; ++i) {
        g.imgset(i) = {};
        put(form, g.imgset(i), Kind::image, Source::imgset, i);
        fixSize(g.imgset(i), 372, 600);
    }
    for (int i = 0; i <= 2; ++i)
        designLabel(form, g.LBLdat.all()[i], Source::LBLdat, i, 12, i == 0 ? 0xC0FFC0 : 0xFFFF80);
    for (int i = 0; i <= 1; ++i) {
        g.lblTot(i) = {};
        designLabel(form, g.lblTot(i), Source::lblTot, i, 12, 0x80C0FF);
        g.lblTot(i).bold = true;
        g.lblTot(i).fixedHeight = 372 / twipsPerPixel;
    }
    g.Command1 = {};
    put(form, g.Command1, Kind::button, Source::Command1);
    g.Command1.Caption = "NEW GAME";
    g.Command2 = {};
    put(form, g.Command2, Kind::button, Source::Command2);
    g.Command2.Caption = "QUIT";
}

void loadLabel(Form& form, LabelArray& labels, int index) {
    if (labels.loaded(index)) return;
    Label& label = labels.all()[index];
    label = labels(0);
    label.index = index;
    label.Visible = false;
    form.controls.push_back(&label);
}
