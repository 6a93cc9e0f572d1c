#include "l10n/Texts.h"

namespace {

// The tray menu, the permission alert, the About panel and the settings.
constexpr Text texts[] = {
    {u"Capturar", u"Capture", u"Cattura", u"Capturer", u"Aufnehmen", u"Capturar"},
    {u"Ajustes…", u"Settings…", u"Impostazioni…", u"Réglages…", u"Einstellungen …", u"Ajustes…"},
    {u"Acerca de Vellumora…", u"About Vellumora…", u"Informazioni su Vellumora…", u"À propos de Vellumora…",
     u"Über Vellumora …", u"Sobre o Vellumora…"},
    {u"Web de Vellumora", u"Vellumora website", u"Sito di Vellumora", u"Site de Vellumora",
     u"Vellumora-Website", u"Site do Vellumora"},
    {u"Buscar actualizaciones…", u"Check for Updates…", u"Cerca aggiornamenti…",
     u"Rechercher des mises à jour…", u"Nach Updates suchen …", u"Procurar atualizações…"},
    {u"Salir de Vellumora", u"Quit Vellumora", u"Esci da Vellumora", u"Quitter Vellumora",
     u"Vellumora beenden", u"Sair do Vellumora"},
    {u"Vellumora necesita permiso de Grabación de pantalla", u"Vellumora needs Screen Recording permission",
     u"Vellumora ha bisogno del permesso di Registrazione schermo",
     u"Vellumora a besoin de l'autorisation d'enregistrement de l'écran",
     u"Vellumora braucht die Berechtigung zur Bildschirmaufnahme",
     u"O Vellumora precisa da permissão de Gravação de Tela"},
    {u"Actívalo en Ajustes del Sistema → Privacidad y seguridad → Grabación de pantalla y audio del sistema, "
     u"y vuelve a abrir Vellumora.",
     u"Turn it on in System Settings → Privacy & Security → Screen & System Audio Recording, then open "
     u"Vellumora again.",
     u"Attivalo in Impostazioni di Sistema → Privacy e sicurezza → Registrazione schermo e audio di sistema, "
     u"poi riapri Vellumora.",
     u"Active-la dans Réglages Système → Confidentialité et sécurité → Enregistrement de l'écran et de "
     u"l'audio du système, puis rouvre Vellumora.",
     u"Aktiviere sie unter Systemeinstellungen → Datenschutz & Sicherheit → Bildschirm- & "
     u"Systemaudioaufnahme und öffne Vellumora dann erneut.",
     u"Ative em Ajustes do Sistema → Privacidade e Segurança → Gravação de Tela e Áudio do Sistema e abra o "
     u"Vellumora de novo."},
    {u"Abrir Ajustes", u"Open Settings", u"Apri Impostazioni", u"Ouvrir les réglages",
     u"Einstellungen öffnen", u"Abrir Ajustes"},
    {u"Cancelar", u"Cancel", u"Annulla", u"Annuler", u"Abbrechen", u"Cancelar"},
    {u"Capturas de pantalla rápidas.\nTus capturas no salen de tu ordenador.",
     u"Quick screenshots.\nYour captures never leave your computer.",
     u"Screenshot veloci.\nLe tue catture non escono dal tuo computer.",
     u"Des captures d'écran rapides.\nTes captures ne quittent jamais ton ordinateur.",
     u"Schnelle Screenshots.\nDeine Aufnahmen verlassen nie deinen Computer.",
     u"Capturas de tela rápidas.\nSuas capturas não saem do seu computador."},
    {u"Aviso legal", u"Legal notice", u"Note legali", u"Mentions légales", u"Rechtliches", u"Aviso legal"},
    {u"Pulsa el atajo…", u"Press the shortcut…", u"Premi la scorciatoia…", u"Appuie sur le raccourci…",
     u"Tastenkürzel drücken …", u"Pressione o atalho…"},
    {u"Atajo para capturar", u"Capture shortcut", u"Scorciatoia per catturare", u"Raccourci de capture",
     u"Kürzel zum Aufnehmen", u"Atalho para capturar"},
    {u"Ajustes de Vellumora", u"Vellumora Settings", u"Impostazioni di Vellumora", u"Réglages de Vellumora",
     u"Vellumora-Einstellungen", u"Ajustes do Vellumora"},
    {u"Ese atajo lo usa otra app. Prueba otro.", u"Another app uses that shortcut. Try another one.",
     u"Quella scorciatoia è già usata da un'altra app. Provane un'altra.",
     u"Une autre app utilise déjà ce raccourci. Essaie-en un autre.",
     u"Dieses Kürzel nutzt schon eine andere App. Probier ein anderes.",
     u"Outro app já usa esse atalho. Tente outro."},
    {u"Haz clic y pulsa la combinación. Por defecto ⇧⌘X.", u"Click and press the keys. Default is ⇧⌘X.",
     u"Clicca e premi la combinazione. Predefinita: ⇧⌘X.",
     u"Clique puis appuie sur la combinaison. Par défaut : ⇧⌘X.",
     u"Klicken und Tasten drücken. Standard: ⇧⌘X.", u"Clique e pressione a combinação. Padrão: ⇧⌘X."},
    {u"Asigna esta orden a una tecla en los ajustes de tu escritorio.",
     u"Bind this command to a key in your desktop's settings.",
     u"Assegna questo comando a un tasto nelle impostazioni del tuo desktop.",
     u"Associe cette commande à une touche dans les réglages de ton bureau.",
     u"Weise diesen Befehl in den Einstellungen deines Desktops einer Taste zu.",
     u"Associe este comando a uma tecla nos ajustes da sua área de trabalho."},
    {u"Tu escritorio captura con %@.", u"Your desktop captures with %@.", u"Il tuo desktop cattura con %@.",
     u"Ton bureau capture avec %@.", u"Dein Desktop nimmt mit %@ auf.",
     u"Sua área de trabalho captura com %@."},
    {u"Abrir Vellumora al iniciar sesión", u"Open Vellumora at login", u"Apri Vellumora all'accesso",
     u"Ouvrir Vellumora à l'ouverture de session", u"Vellumora beim Anmelden öffnen",
     u"Abrir o Vellumora ao iniciar sessão"},
    {u"Guardado: %@", u"Saved: %@", u"Salvata: %@", u"Enregistré : %@", u"Gespeichert: %@", u"Salvo: %@"},
    {u"Espacio", u"Space", u"Spazio", u"Espace", u"Leertaste", u"Espaço"},
    {u"Ctrl", u"Ctrl", u"Ctrl", u"Ctrl", u"Strg", u"Ctrl"},
    {u"Alt", u"Alt", u"Alt", u"Alt", u"Alt", u"Alt"},
    {u"Mayús", u"Shift", u"Maiusc", u"Maj", u"Umschalt", u"Shift"},
    {u"Super", u"Super", u"Super", u"Super", u"Super", u"Super"},
    {u"Intro", u"Return", u"Invio", u"Entrée", u"Eingabe", u"Return"},
    {u"Esc", u"Esc", u"Esc", u"Échap", u"Esc", u"Esc"},
    {u"Tab", u"Tab", u"Tab", u"Tab", u"Tab", u"Tab"},
    {u"☕ Invítame a un café", u"☕ Buy me a coffee", u"☕ Offrimi un caffè", u"☕ Offre-moi un café",
     u"☕ Spendier mir einen Kaffee", u"☕ Me pague um café"},
};

} // namespace

std::span<const Text> shellTexts() { return texts; }
