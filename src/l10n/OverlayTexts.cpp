#include "l10n/Texts.h"

namespace {

// The tools, the bar, the hints and the name of a saved file.
constexpr Text texts[] = {
    {u"Lápiz", u"Pencil", u"Matita", u"Crayon", u"Stift", u"Lápis"},
    {u"Línea", u"Line", u"Linea", u"Ligne", u"Linie", u"Linha"},
    {u"Flecha", u"Arrow", u"Freccia", u"Flèche", u"Pfeil", u"Seta"},
    {u"Rectángulo", u"Rectangle", u"Rettangolo", u"Rectangle", u"Rechteck", u"Retângulo"},
    {u"Elipse", u"Ellipse", u"Ellisse", u"Ellipse", u"Ellipse", u"Elipse"},
    {u"Marcador", u"Highlighter", u"Evidenziatore", u"Surligneur", u"Textmarker", u"Marca-texto"},
    {u"Texto", u"Text", u"Testo", u"Texte", u"Text", u"Texto"},
    {u"Pixelar", u"Pixelate", u"Pixel", u"Pixelliser", u"Verpixeln", u"Pixelizar"},
    {u"Colores", u"Colours", u"Colori", u"Couleurs", u"Farben", u"Cores"},
    {u"Cuentagotas", u"Eyedropper", u"Contagocce", u"Pipette", u"Pipette", u"Conta-gotas"},
    {u"Color · I: cuentagotas · rueda: grosor", u"Colour · I: eyedropper · wheel: thickness",
     u"Colore · I: contagocce · rotellina: spessore", u"Couleur · I : pipette · molette : épaisseur",
     u"Farbe · I: Pipette · Mausrad: Stärke", u"Cor · I: conta-gotas · rodinha: espessura"},
    {u"Color", u"Colour", u"Colore", u"Couleur", u"Farbe", u"Cor"},
    {u"Deshacer", u"Undo", u"Annulla", u"Annuler", u"Rückgängig", u"Desfazer"},
    {u"Guardar", u"Save", u"Salva", u"Enregistrer", u"Sichern", u"Salvar"},
    {u"Imprimir", u"Print", u"Stampa", u"Imprimer", u"Drucken", u"Imprimir"},
    {u"Cerrar", u"Close", u"Chiudi", u"Fermer", u"Schließen", u"Fechar"},
    {u"Copiar", u"Copy", u"Copia", u"Copier", u"Kopieren", u"Copiar"},
    {u"Copiar  ⌘C · Intro", u"Copy  ⌘C · Return", u"Copia  ⌘C · Invio", u"Copier  ⌘C · Entrée",
     u"Kopieren  ⌘C · Eingabe", u"Copiar  ⌘C · Return"},
    {u"Copiado ✓", u"Copied ✓", u"Copiato ✓", u"Copié ✓", u"Kopiert ✓", u"Copiado ✓"},
    {u"Arrastra para seleccionar · Intro copia · Esc sale", u"Drag to select · Return copies · Esc exits",
     u"Trascina per selezionare · Invio copia · Esc esce",
     u"Fais glisser pour sélectionner · Entrée copie · Échap quitte",
     u"Ziehen zum Auswählen · Eingabe kopiert · Esc beendet",
     u"Arraste para selecionar · Return copia · Esc sai"},
    {u"Escribe…", u"Type…", u"Scrivi…", u"Écris…", u"Schreiben …", u"Escreva…"},
    {u"Captura", u"Capture", u"Cattura", u"Capture", u"Bildschirmfoto", u"Captura"},
    {u"Truco: deja el ratón quieto medio segundo y se hace figura perfecta",
     u"Tip: keep the mouse still for half a second for a perfect shape",
     u"Trucco: tieni fermo il mouse mezzo secondo e diventa una forma perfetta",
     u"Astuce : garde la souris immobile une demi-seconde pour une forme parfaite",
     u"Tipp: Halte die Maus eine halbe Sekunde still – für eine perfekte Form",
     u"Dica: deixe o mouse parado meio segundo e vira uma forma perfeita"},
};

} // namespace

std::span<const Text> overlayTexts() { return texts; }
