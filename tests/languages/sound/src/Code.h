const char* const kText = QT_TRANSLATE_NOOP("Code", "%1 of %n @tr.");
