; The setup program's own texts; the others are NSIS's.

!macro text name english german french spanish italian portuguese russian greek
    LangString ${name} ${LANG_ENGLISH} "${english}"
    LangString ${name} ${LANG_GERMAN} "${german}"
    LangString ${name} ${LANG_FRENCH} "${french}"
    LangString ${name} ${LANG_SPANISH} "${spanish}"
    LangString ${name} ${LANG_ITALIAN} "${italian}"
    LangString ${name} ${LANG_PORTUGUESE} "${portuguese}"
    LangString ${name} ${LANG_RUSSIAN} "${russian}"
    LangString ${name} ${LANG_GREEK} "${greek}"
!macroend

!insertmacro text textForWhom \
    "Who shall use ${PRODUCT}?" \
    "Wer soll ${PRODUCT} verwenden?" \
    "Qui utilisera ${PRODUCT} ?" \
    "¿Quién usará ${PRODUCT}?" \
    "Chi userà ${PRODUCT}?" \
    "Quem vai usar o ${PRODUCT}?" \
    "Кто будет использовать ${PRODUCT}?" \
    "Ποιος θα χρησιμοποιεί το ${PRODUCT};"

!insertmacro text textForMe \
    "Only I" \
    "Nur ich" \
    "Moi uniquement" \
    "Solo yo" \
    "Solo io" \
    "Apenas eu" \
    "Только я" \
    "Μόνο εγώ"

!insertmacro text textForAll \
    "All users of this computer (needs an administrator)" \
    "Alle Benutzer dieses Computers (Administrator erforderlich)" \
    "Tous les utilisateurs de cet ordinateur (administrateur requis)" \
    "Todos los usuarios de este equipo (requiere un administrador)" \
    "Tutti gli utenti di questo computer (richiede un amministratore)" \
    "Todos os utilizadores deste computador (requer um administrador)" \
    "Все пользователи этого компьютера (нужны права администратора)" \
    "Όλοι οι χρήστες αυτού του υπολογιστή (απαιτείται διαχειριστής)"

!insertmacro text textDesktop \
    "Desktop icon" \
    "Symbol auf dem Desktop" \
    "Icône sur le bureau" \
    "Icono en el escritorio" \
    "Icona sul desktop" \
    "Ícone no ambiente de trabalho" \
    "Значок на рабочем столе" \
    "Εικονίδιο στην επιφάνεια εργασίας"

!insertmacro text textSettings \
    "My settings and log" \
    "Meine Einstellungen und mein Protokoll" \
    "Mes paramètres et mon journal" \
    "Mi configuración y mi registro" \
    "Le mie impostazioni e il mio registro" \
    "As minhas definições e o meu registo" \
    "Мои настройки и журнал" \
    "Οι ρυθμίσεις και το αρχείο καταγραφής μου"

!insertmacro text textRunning \
    "${PRODUCT} is running. Please close it and try again." \
    "${PRODUCT} läuft gerade. Bitte schließen Sie es und versuchen Sie es noch einmal." \
    "${PRODUCT} est en cours d’exécution. Veuillez le fermer, puis réessayer." \
    "${PRODUCT} se está ejecutando. Ciérrelo e inténtelo de nuevo." \
    "${PRODUCT} è in esecuzione. Chiuderlo e riprovare." \
    "O ${PRODUCT} está em execução. Feche-o e tente novamente." \
    "${PRODUCT} запущен. Закройте его и повторите попытку." \
    "Το ${PRODUCT} εκτελείται. Κλείστε το και δοκιμάστε ξανά."
