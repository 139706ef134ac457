<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
    <context>
        <name>AboutWindow</name>
        <message>
            <source>About Orvane</source>
            <comment>entry of the program's menu, and title of its window</comment>
            <translation>Über Orvane</translation>
        </message>
        <message>
            <source>Built on %1</source>
            <comment>names and versions of libraries</comment>
            <translation>Gebaut mit %1</translation>
        </message>
        <message>
            <source>Free software under the MIT licence.
Copyright © 2026 The Orvane team</source>
            <comment>in About</comment>
            <translation>Freie Software unter der MIT-Lizenz.
Copyright © 2026 The Orvane team</translation>
        </message>
        <message>
            <source>Memory usage at a glance.</source>
            <comment>what the program is, in About</comment>
            <translation>Speichernutzung auf einen Blick.</translation>
        </message>
        <message>
            <source>OK</source>
            <comment>button: closes the window</comment>
            <translation>OK</translation>
        </message>
        <message>
            <source>Version %1</source>
            <comment>in About</comment>
            <translation>Version %1</translation>
        </message>
    </context>
    <context>
        <name>AnimatedCircularGauge</name>
        <message>
            <source>Boosting...</source>
            <comment>while memory is being freed</comment>
            <translation>Gibt frei ...</translation>
        </message>
        <message>
            <source>Memory usage: %1</source>
            <comment>of a ring; %1 is a percentage, for assistive technology</comment>
            <translation>Speichernutzung: %1</translation>
        </message>
        <message>
            <source>Used</source>
            <comment>of memory</comment>
            <translation>Belegt</translation>
        </message>
    </context>
    <context>
        <name>BoostButton</name>
        <message>
            <source>Boost Memory</source>
            <comment>button: frees memory for a moment</comment>
            <translation>Speicher freigeben</translation>
        </message>
        <message>
            <source>Boosting...</source>
            <comment>while memory is being freed</comment>
            <translation>Gibt frei ...</translation>
        </message>
    </context>
    <context>
        <name>ContentView</name>
        <message>
            <source>Overview</source>
            <comment>title of a tab</comment>
            <translation>Übersicht</translation>
        </message>
        <message>
            <source>Processes</source>
            <comment>title of a tab</comment>
            <translation>Prozesse</translation>
        </message>
        <message>
            <source>View</source>
            <comment>name of the tabs, for assistive technology</comment>
            <translation>Ansicht</translation>
        </message>
    </context>
    <context>
        <name>DetailsToggleBar</name>
        <message>
            <source>Hide Details</source>
            <comment>button: closes what it opened</comment>
            <translation>Weniger anzeigen</translation>
        </message>
        <message>
            <source>Show Details</source>
            <comment>button: opens more of the view</comment>
            <translation>Mehr anzeigen</translation>
        </message>
    </context>
    <context>
        <name>GearMenu</name>
        <message>
            <source>Check for Updates...</source>
            <comment>entry of a menu</comment>
            <translation>Nach Aktualisierungen suchen ...</translation>
        </message>
        <message>
            <source>Launch at Login</source>
            <comment>entry of a menu, with a check mark</comment>
            <translation>Beim Anmelden starten</translation>
        </message>
        <message>
            <source>Quit Orvane</source>
            <comment>entry of a menu</comment>
            <translation>Orvane beenden</translation>
        </message>
        <message>
            <source>Settings</source>
            <comment>name of the gear's menu</comment>
            <translation>Einstellungen</translation>
        </message>
        <message>
            <source>Show Window</source>
            <comment>entry of a menu, with a check mark</comment>
            <translation>Fenster anzeigen</translation>
        </message>
    </context>
    <context>
        <name>HistoryPlot</name>
        <message>
            <source>No values yet</source>
            <comment>summary of an empty chart, for assistive technology</comment>
            <translation>Noch keine Werte</translation>
        </message>
        <message>
            <source>Now %1, lowest %2, highest %3</source>
            <comment>summary of a chart, for assistive technology</comment>
            <translation>Jetzt %1, niedrigster Wert %2, höchster Wert %3</translation>
        </message>
    </context>
    <context>
        <name>KillConfirmation</name>
        <message>
            <source>Cancel</source>
            <comment>button: changes nothing</comment>
            <translation>Abbrechen</translation>
        </message>
        <message>
            <source>Kill</source>
            <comment>button: ends an application at once</comment>
            <translation>Beenden</translation>
        </message>
        <message>
            <source>Kill Process?</source>
            <comment>title of the question before an application is ended</comment>
            <translation>Prozess beenden?</translation>
        </message>
    </context>
    <context>
        <name>MainBoostButton</name>
        <message>
            <source>Boost Memory</source>
            <comment>button: frees memory for a moment</comment>
            <translation>Speicher freigeben</translation>
        </message>
    </context>
    <context>
        <name>MemoryChartView</name>
        <message>
            <source>Memory Usage History</source>
            <comment>title of a chart</comment>
            <translation>Verlauf der Speichernutzung</translation>
        </message>
    </context>
    <context>
        <name>MenuBar</name>
        <message>
            <source>About Orvane</source>
            <comment>entry of the program's menu, and title of its window</comment>
            <translation>Über Orvane</translation>
        </message>
        <message>
            <source>Check for Updates...</source>
            <comment>entry of a menu</comment>
            <translation>Nach Aktualisierungen suchen ...</translation>
        </message>
        <message>
            <source>Close Window</source>
            <comment>entry of the File menu</comment>
            <translation>Fenster schließen</translation>
        </message>
        <message>
            <source>Contact Support</source>
            <comment>entry of the Help menu</comment>
            <translation>Hilfe anfordern</translation>
        </message>
        <message>
            <source>File</source>
            <comment>title of a menu</comment>
            <translation>Datei</translation>
        </message>
        <message>
            <source>Help</source>
            <comment>title of a menu</comment>
            <translation>Hilfe</translation>
        </message>
        <message>
            <source>Menu bar</source>
            <comment>name for assistive technology</comment>
            <translation>Menüleiste</translation>
        </message>
        <message>
            <source>Minimize</source>
            <comment>entry of the Window menu</comment>
            <translation>Minimieren</translation>
        </message>
        <message>
            <source>Quit Orvane</source>
            <comment>entry of a menu</comment>
            <translation>Orvane beenden</translation>
        </message>
        <message>
            <source>Window</source>
            <comment>title of a menu</comment>
            <translation>Fenster</translation>
        </message>
    </context>
    <context>
        <name>ProcessHeader</name>
        <message>
            <source>Average Memory</source>
            <comment>entry of the sort menu</comment>
            <translation>Durchschnittlicher Speicher</translation>
        </message>
        <message>
            <source>Current Memory</source>
            <comment>entry of the sort menu</comment>
            <translation>Derzeitiger Speicher</translation>
        </message>
        <message>
            <source>Peak Memory</source>
            <comment>entry of the sort menu</comment>
            <translation>Höchster Speicher</translation>
        </message>
        <message>
            <source>Refresh</source>
            <comment>name of a button, for assistive technology</comment>
            <translation>Neu laden</translation>
        </message>
        <message>
            <source>Refresh process list</source>
            <comment>tooltip of a button</comment>
            <translation>Prozessliste neu laden</translation>
        </message>
        <message>
            <source>Sort by</source>
            <comment>title of a menu</comment>
            <translation>Sortieren nach</translation>
        </message>
        <message>
            <source>Sort by...</source>
            <comment>tooltip of a button with a menu</comment>
            <translation>Sortieren nach ...</translation>
        </message>
        <message>
            <source>Top Memory Consumers</source>
            <comment>title of the list of applications</comment>
            <translation>Größte Speichernutzer</translation>
        </message>
    </context>
    <context>
        <name>ProcessInfoHistory</name>
        <message>
            <source>Average</source>
            <comment>caption of an application's average memory</comment>
            <translation>Durchschnitt</translation>
        </message>
        <message>
            <source>Current</source>
            <comment>caption of an application's memory now</comment>
            <translation>Derzeit</translation>
        </message>
        <message>
            <source>Memory Usage Over Time</source>
            <comment>title of a chart of one application</comment>
            <translation>Speichernutzung im Verlauf</translation>
        </message>
        <message>
            <source>Peak</source>
            <comment>caption of an application's greatest memory</comment>
            <translation>Spitze</translation>
        </message>
    </context>
    <context>
        <name>ProcessInfoLocation</name>
        <message>
            <source>Application Location</source>
            <comment>heading above an application's path</comment>
            <translation>Ort der Anwendung</translation>
        </message>
        <message>
            <source>Path</source>
            <comment>name of an application's path, for assistive technology</comment>
            <translation>Pfad</translation>
        </message>
        <message>
            <source>Reveal</source>
            <comment>button: shows the application's file in the file manager</comment>
            <translation>Anzeigen</translation>
        </message>
        <message>
            <source>Show in Finder</source>
            <comment>tooltip: in the file manager</comment>
            <translation>In der Dateiverwaltung anzeigen</translation>
        </message>
    </context>
    <context>
        <name>ProcessInfoPopover</name>
        <message>
            <source>Active Threads</source>
            <comment>caption of a figure of an application</comment>
            <translation>Aktive Threads</translation>
        </message>
        <message>
            <source>Details of %1</source>
            <comment>name of an application's details, for assistive technology</comment>
            <translation>Einzelheiten zu %1</translation>
        </message>
        <message>
            <source>Memory Details</source>
            <comment>heading above figures of an application</comment>
            <translation>Speicher im Einzelnen</translation>
        </message>
        <message>
            <source>Physical Memory</source>
            <comment>caption of a figure of an application</comment>
            <translation>Physischer Speicher</translation>
        </message>
        <message>
            <source>Process Details</source>
            <comment>heading above figures of an application</comment>
            <translation>Prozess im Einzelnen</translation>
        </message>
        <message>
            <source>Virtual Memory</source>
            <comment>caption of a figure of an application</comment>
            <translation>Virtueller Speicher</translation>
        </message>
    </context>
    <context>
        <name>ProcessList</name>
        <message>
            <source>Applications</source>
            <comment>name of the list, for assistive technology</comment>
            <translation>Anwendungen</translation>
        </message>
        <message>
            <source>Kill Process</source>
            <comment>button: ends an application at once, after a question</comment>
            <translation>Prozess beenden</translation>
        </message>
    </context>
    <context>
        <name>ProcessMemoryChart</name>
        <message>
            <source>Memory Usage Over Time</source>
            <comment>title of a chart of one application</comment>
            <translation>Speichernutzung im Verlauf</translation>
        </message>
    </context>
    <context>
        <name>ProcessRow</name>
        <message>
            <source>Show details of %1</source>
            <comment>name of a row's button, for assistive technology</comment>
            <translation>Einzelheiten zu %1 anzeigen</translation>
        </message>
        <message>
            <source>Show process details</source>
            <comment>tooltip of a row's button</comment>
            <translation>Einzelheiten des Prozesses anzeigen</translation>
        </message>
    </context>
    <context>
        <name>ProcessesView</name>
        <message>
            <source>Processes</source>
            <comment>title of a tab</comment>
            <translation>Prozesse</translation>
        </message>
    </context>
    <context>
        <name>ProcessingArcs</name>
        <message>
            <source>Boosting...</source>
            <comment>while memory is being freed</comment>
            <translation>Gibt frei ...</translation>
        </message>
    </context>
    <context>
        <name>Program</name>
        <message>
            <source>%1 is using %2 MB</source>
            <comment>notification; %1 is an application's name</comment>
            <translation>%1 nutzt %2 MB</translation>
        </message>
        <message>
            <source>Boost Complete!</source>
            <comment>title of a notification</comment>
            <translation>Speicher freigegeben!</translation>
        </message>
        <message>
            <source>Boost Memory</source>
            <comment>entry of the status item's menu</comment>
            <translation>Speicher freigeben</translation>
        </message>
        <message>
            <source>Check for Updates...</source>
            <comment>entry of the status item's menu</comment>
            <translation>Nach Aktualisierungen suchen ...</translation>
        </message>
        <message>
            <source>Freed %1 MB of memory</source>
            <comment>notification; %1 is a number</comment>
            <translation>%1 MB Speicher freigegeben</translation>
        </message>
        <message>
            <source>Launch at Login</source>
            <comment>entry of the status item's menu</comment>
            <translation>Beim Anmelden starten</translation>
        </message>
        <message>
            <source>Memory Pressure High</source>
            <comment>title of a notification</comment>
            <translation>Speicher wird knapp</translation>
        </message>
        <message>
            <source>Memory usage is %1</source>
            <comment>notification; %1 is a percentage</comment>
            <translation>Die Speichernutzung liegt bei %1</translation>
        </message>
        <message>
            <source>Memory usage is high (%1)</source>
            <comment>alert; %1 is a percentage</comment>
            <translation>Die Speichernutzung ist hoch (%1)</translation>
        </message>
        <message>
            <source>Memory usage: %1</source>
            <comment>tooltip; %1 is a percentage</comment>
            <translation>Speichernutzung: %1</translation>
        </message>
        <message>
            <source>Memory: %1 (%2 of %3 GB)</source>
            <comment>figure at the top of the status item's menu</comment>
            <translation>Speicher: %1 (%2 von %3 GB)</translation>
        </message>
        <message>
            <source>Memory: unknown</source>
            <comment>figure at the top of the status item's menu</comment>
            <translation>Speicher: unbekannt</translation>
        </message>
        <message>
            <source>Quit Orvane</source>
            <comment>entry of the status item's menu</comment>
            <translation>Orvane beenden</translation>
        </message>
        <message>
            <source>Show Details</source>
            <comment>entry of the status item's menu</comment>
            <translation>Mehr anzeigen</translation>
        </message>
        <message>
            <source>Show Window</source>
            <comment>entry of the status item's menu</comment>
            <translation>Fenster anzeigen</translation>
        </message>
    </context>
    <context>
        <name>ProgressStripe</name>
        <message>
            <source>Checking</source>
            <comment>name of the progress of an update check, for assistive technology</comment>
            <translation>Suche</translation>
        </message>
    </context>
    <context>
        <name>SelectionBar</name>
        <message>
            <source>Cancel</source>
            <comment>button: changes nothing</comment>
            <translation>Abbrechen</translation>
        </message>
        <message>
            <source>Kill Process</source>
            <comment>button: ends an application at once, after a question</comment>
            <translation>Prozess beenden</translation>
        </message>
        <message>
            <source>Selected application</source>
            <comment>name of the bar below the list, for assistive technology</comment>
            <translation>Ausgewählte Anwendung</translation>
        </message>
    </context>
    <context>
        <name>StatusHeader</name>
        <message>
            <source>Hide Details</source>
            <comment>button: closes what it opened</comment>
            <translation>Weniger anzeigen</translation>
        </message>
        <message>
            <source>Memory Usage</source>
            <comment>title of the popover</comment>
            <translation>Speichernutzung</translation>
        </message>
        <message>
            <source>Show Details</source>
            <comment>button: opens more of the view</comment>
            <translation>Mehr anzeigen</translation>
        </message>
    </context>
    <context>
        <name>UpdateWindow</name>
        <message>
            <source>Software Update</source>
            <comment>title of a window</comment>
            <translation>Aktualisierung</translation>
        </message>
    </context>
    <context>
        <name>Updates</name>
        <message>
            <source>The address of the update feed is not a secure one.</source>
            <comment>of an update check</comment>
            <translation>Die Adresse der Liste der Versionen ist keine sichere.</translation>
        </message>
        <message>
            <source>The connection ended before the update feed was complete.</source>
            <comment>of an update check</comment>
            <translation>Die Verbindung endete, bevor die Liste der Versionen vollständig war.</translation>
        </message>
        <message>
            <source>The server of the update feed answered with error %1.</source>
            <comment>of an update check; %1 is a number</comment>
            <translation>Der Server der Liste der Versionen antwortete mit Fehler %1.</translation>
        </message>
        <message>
            <source>The update feed could not be reached over a secure connection.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen war nicht über eine sichere Verbindung erreichbar.</translation>
        </message>
        <message>
            <source>The update feed could not be reached. Please check your network connection.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen war nicht erreichbar. Bitte die Netzwerkverbindung prüfen.</translation>
        </message>
        <message>
            <source>The update feed could not be understood.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen ist nicht verständlich.</translation>
        </message>
        <message>
            <source>The update feed did not answer in time.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen kam nicht rechtzeitig.</translation>
        </message>
        <message>
            <source>The update feed is larger than it should be.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen ist größer, als sie sein dürfte.</translation>
        </message>
        <message>
            <source>The update feed names no version.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen nennt keine Version.</translation>
        </message>
        <message>
            <source>The update feed was redirected to an address that is not secure.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen wurde an eine unsichere Adresse weitergeleitet.</translation>
        </message>
        <message>
            <source>The update feed was redirected too often.</source>
            <comment>of an update check</comment>
            <translation>Die Liste der Versionen wurde zu oft weitergeleitet.</translation>
        </message>
    </context>
    <context>
        <name>UsageRing</name>
        <message>
            <source>Memory usage: %1</source>
            <comment>of a ring; %1 is a percentage, for assistive technology</comment>
            <translation>Speichernutzung: %1</translation>
        </message>
    </context>
    <context>
        <name>Views</name>
        <message>
            <source>A new version is available</source>
            <comment>headline</comment>
            <translation>Eine neue Version ist verfügbar</translation>
        </message>
        <message>
            <source>Are you sure you want to kill '%1'? Unsaved data will be lost.</source>
            <comment>before an application is ended; %1 is its name</comment>
            <translation>Soll „%1“ wirklich beendet werden? Nicht gespeicherte Daten gehen verloren.</translation>
        </message>
        <message>
            <source>Cancel</source>
            <comment>button: ends the check</comment>
            <translation>Abbrechen</translation>
        </message>
        <message>
            <source>Checking for updates...</source>
            <comment>headline</comment>
            <translation>Sucht nach Aktualisierungen ...</translation>
        </message>
        <message>
            <source>Close</source>
            <comment>button</comment>
            <translation>Schließen</translation>
        </message>
        <message>
            <source>Last %1 min</source>
            <comment>how far a chart goes back</comment>
            <translation>Letzte %1 min</translation>
        </message>
        <message>
            <source>Later</source>
            <comment>button: closes the window</comment>
            <translation>Später</translation>
        </message>
        <message>
            <source>OK</source>
            <comment>button: closes the window</comment>
            <translation>OK</translation>
        </message>
        <message>
            <source>Open Download Page</source>
            <comment>button</comment>
            <translation>Seite zum Herunterladen öffnen</translation>
        </message>
        <message>
            <source>Orvane %1 can be downloaded%2. You have version %3.</source>
            <comment>%2 is empty or a size in brackets</comment>
            <translation>Orvane %1 kann heruntergeladen werden%2. Installiert ist Version %3.</translation>
        </message>
        <message>
            <source>Orvane is up to date</source>
            <comment>headline</comment>
            <translation>Orvane ist aktuell</translation>
        </message>
        <message>
            <source>PID: %1</source>
            <comment>number of a process</comment>
            <translation>PID: %1</translation>
        </message>
        <message>
            <source>The check didn't succeed</source>
            <comment>headline</comment>
            <translation>Die Suche ist fehlgeschlagen</translation>
        </message>
        <message>
            <source>Top %1 apps use %2 of memory</source>
            <comment>%1 is a number, %2 a percentage</comment>
            <translation>Die größten %1 Anwendungen nutzen %2 des Speichers</translation>
        </message>
        <message>
            <source>Try Again</source>
            <comment>button</comment>
            <translation>Erneut versuchen</translation>
        </message>
        <message>
            <source>Updates come with your system</source>
            <comment>headline</comment>
            <translation>Aktualisierungen kommen mit dem System</translation>
        </message>
        <message>
            <source>Version %1 is the newest version.</source>
            <comment>of an update check</comment>
            <translation>Version %1 ist die neueste Version.</translation>
        </message>
        <message>
            <source>Your system's package manager keeps this copy of Orvane, version %1, up to date.</source>
            <comment>of an update check</comment>
            <translation>Die Paketverwaltung des Systems hält dieses Orvane, Version %1, aktuell.</translation>
        </message>
    </context>
</TS>
