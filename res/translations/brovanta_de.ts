<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Calendar</name>
    <message>
        <source>Month before</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Month after</source>
        <translation>Nächster Monat</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Months</source>
        <translation>Monate</translation>
    </message>
</context>
<context>
    <name>DateHeadings</name>
    <message>
        <source>Unknown date</source>
        <translation>Datum unbekannt</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>Weekday and date.</extracomment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>DiscountForm</name>
    <message>
        <source>Coupon</source>
        <translation>Gutschein</translation>
    </message>
    <message>
        <source>Coupon:</source>
        <translation>Gutschein:</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Art:</translation>
    </message>
    <message>
        <source>Product:</source>
        <translation>Produkt:</translation>
    </message>
    <message>
        <source>Value Type:</source>
        <translation>Art des Werts:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>Wert:</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>Store:</source>
        <translation>Laden:</translation>
    </message>
    <message>
        <source>Start Date:</source>
        <translation>Gültig ab:</translation>
    </message>
    <message>
        <source>End Date:</source>
        <translation>Gültig bis:</translation>
    </message>
    <message>
        <source>View on the web</source>
        <translation>Im Web ansehen</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Apply discount to current product</source>
        <translation>Rabatt auf dieses Produkt anwenden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>DiscountWords</name>
    <message>
        <source>%1% off</source>
        <translation>%1 % Rabatt</translation>
    </message>
    <message>
        <source>%1 off</source>
        <translation>%1 Rabatt</translation>
    </message>
    <message>
        <source>%1, until %2</source>
        <translation>%1, bis %2</translation>
    </message>
    <message>
        <source>%1, from %2</source>
        <translation>%1, ab %2</translation>
    </message>
    <message>
        <source>-%1%</source>
        <translation>-%1 %</translation>
    </message>
    <message>
        <source>-%1</source>
        <translation>-%1</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1 from %2</source>
        <translation>%1 ab %2</translation>
    </message>
</context>
<context>
    <name>FindForm</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find text:</source>
        <translation>Suchtext:</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>MainCommands</name>
    <message>
        <source>Do you want to permanently delete the selected coupon?</source>
        <translation>Möchten Sie den ausgewählten Gutschein endgültig löschen?</translation>
    </message>
    <message>
        <source>Do you want to permanently delete the selected purchase?</source>
        <translation>Möchten Sie den ausgewählten Einkauf endgültig löschen?</translation>
    </message>
    <message>
        <source>Do you want to permanently delete the selected web search and all its results?</source>
        <translation>Möchten Sie die ausgewählte Websuche mit allen Ergebnissen endgültig löschen?</translation>
    </message>
    <message>
        <source>Do you want to permanently delete the selected product?</source>
        <translation>Möchten Sie das ausgewählte Produkt endgültig löschen?</translation>
    </message>
    <message>
        <source>The selected product was setup as a recurring purchase.<byte value="xd"/>
Do you want to permanently delete all instances in the recurring series for this product??</source>
        <translation>Das ausgewählte Produkt wird wiederholt gekauft.<byte value="xd"/>
Möchten Sie alle Termine dieser Reihe endgültig löschen?</translation>
    </message>
    <message>
        <source>Do you want to mark the selected product as purchased?</source>
        <translation>Möchten Sie das ausgewählte Produkt als gekauft markieren?</translation>
    </message>
</context>
<context>
    <name>MainForm</name>
    <message>
        <source>Shows one store or all</source>
        <translation>Zeigt einen Laden oder alle</translation>
    </message>
    <message>
        <source>Shows one category or all</source>
        <translation>Zeigt eine Kategorie oder alle</translation>
    </message>
    <message>
        <source>Pick a date</source>
        <translation>Datum wählen</translation>
    </message>
    <message>
        <source>Update stores, categories and coupons (F5)</source>
        <translation>Läden, Kategorien und Gutscheine aktualisieren (F5)</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Records</source>
        <translation>Einträge</translation>
    </message>
</context>
<context>
    <name>Message</name>
    <message>
        <source>Question</source>
        <translation>Frage</translation>
    </message>
</context>
<context>
    <name>OptionsForm</name>
    <message>
        <source>Options</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Sales Tax</source>
        <translation>Mehrwertsteuer</translation>
    </message>
    <message>
        <source>Brovanta can automatically add the sales tax to your purchases.</source>
        <translation>Brovanta kann die Mehrwertsteuer automatisch zu Ihren Einkäufen hinzurechnen.</translation>
    </message>
    <message>
        <source>Tax (%):</source>
        <translation>Steuer (%):</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Brovanta can download store coupons based on your location.</source>
        <translation>Brovanta kann Gutscheine für Läden an Ihrem Ort herunterladen.</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>Land:</translation>
    </message>
    <message>
        <source>Zip Code:</source>
        <translation>Postleitzahl:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Period</name>
    <message>
        <source>MMM dd, yyyy</source>
        <translation>d. MMM yyyy</translation>
    </message>
    <message>
        <source>MMM dd</source>
        <extracomment>The first day of a week in its heading; the last one follows.</extracomment>
        <translation>d.M.</translation>
    </message>
    <message>
        <source>dd, yyyy</source>
        <extracomment>The last day of a week in its heading.</extracomment>
        <translation>d.M.yyyy</translation>
    </message>
    <message>
        <source>MMM yyyy</source>
        <translation>MMMM yyyy</translation>
    </message>
    <message>
        <source>on this day</source>
        <translation>an diesem Tag</translation>
    </message>
    <message>
        <source>in this week</source>
        <translation>in dieser Woche</translation>
    </message>
    <message>
        <source>in this month</source>
        <translation>in diesem Monat</translation>
    </message>
</context>
<context>
    <name>PickerForm</name>
    <message>
        <source>Shows one store or all</source>
        <translation>Zeigt einen Laden oder alle</translation>
    </message>
    <message>
        <source>Shows one category or all</source>
        <translation>Zeigt eine Kategorie oder alle</translation>
    </message>
    <message>
        <source>Select Coupon</source>
        <translation>Gutschein auswählen</translation>
    </message>
    <message>
        <source>Pick a date</source>
        <translation>Datum wählen</translation>
    </message>
    <message>
        <source>Coupons</source>
        <translation>Gutscheine</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ProductForm</name>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>Product:</source>
        <translation>Produkt:</translation>
    </message>
    <message>
        <source>Unit Type:</source>
        <translation>Einheit:</translation>
    </message>
    <message>
        <source>Quantity:</source>
        <translation>Menge:</translation>
    </message>
    <message>
        <source>Unit Price:</source>
        <translation>Einzelpreis:</translation>
    </message>
    <message>
        <source>Tax (%):</source>
        <translation>Steuer (%):</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>Store:</source>
        <translation>Laden:</translation>
    </message>
    <message>
        <source>Purchase Type:</source>
        <translation>Kaufart:</translation>
    </message>
    <message>
        <source>Purchase Date:</source>
        <translation>Kaufdatum:</translation>
    </message>
    <message>
        <source>Coupons:</source>
        <translation>Gutscheine:</translation>
    </message>
    <message>
        <source>Coupon 1</source>
        <translation>Gutschein 1</translation>
    </message>
    <message>
        <source>Coupon 2</source>
        <translation>Gutschein 2</translation>
    </message>
    <message>
        <source>Coupon 3</source>
        <translation>Gutschein 3</translation>
    </message>
    <message>
        <source>Coupon 4</source>
        <translation>Gutschein 4</translation>
    </message>
    <message>
        <source>Coupon 5</source>
        <translation>Gutschein 5</translation>
    </message>
    <message>
        <source>Find discounts</source>
        <translation>Rabatte suchen</translation>
    </message>
    <message>
        <source>Find discounts for this product</source>
        <translation>Rabatte für dieses Produkt suchen</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PurchaseType</name>
    <message>
        <source>One Time</source>
        <translation>Einmal</translation>
    </message>
    <message>
        <source>Every Few Days</source>
        <translation>Alle paar Tage</translation>
    </message>
    <message>
        <source>Every Week</source>
        <translation>Jede Woche</translation>
    </message>
    <message>
        <source>Every 2 Weeks</source>
        <translation>Alle 2 Wochen</translation>
    </message>
    <message>
        <source>Every 3 Weeks</source>
        <translation>Alle 3 Wochen</translation>
    </message>
    <message>
        <source>Every 4 Weeks</source>
        <translation>Alle 4 Wochen</translation>
    </message>
    <message>
        <source>Every Month</source>
        <translation>Jeden Monat</translation>
    </message>
    <message>
        <source>Every 2 Months</source>
        <translation>Alle 2 Monate</translation>
    </message>
    <message>
        <source>Every 3 Months</source>
        <translation>Alle 3 Monate</translation>
    </message>
    <message>
        <source>Every 4 Months</source>
        <translation>Alle 4 Monate</translation>
    </message>
    <message>
        <source>Every 5 Months</source>
        <translation>Alle 5 Monate</translation>
    </message>
    <message>
        <source>Every 6 Months</source>
        <translation>Alle 6 Monate</translation>
    </message>
    <message>
        <source>Every 12 Months</source>
        <translation>Alle 12 Monate</translation>
    </message>
    <message>
        <source>Days Interval:</source>
        <translation>Abstand in Tagen:</translation>
    </message>
    <message>
        <source>You must select the days interval for this daily purchase.</source>
        <translation>Bitte wählen Sie den Abstand in Tagen für diesen täglichen Einkauf.</translation>
    </message>
    <message>
        <source>Day of Week:</source>
        <translation>Wochentag:</translation>
    </message>
    <message>
        <source>You must select the day of the week for this weekly purchase.</source>
        <translation>Bitte wählen Sie den Wochentag für diesen wöchentlichen Einkauf.</translation>
    </message>
    <message>
        <source>Day of Month:</source>
        <translation>Tag im Monat:</translation>
    </message>
    <message>
        <source>You must select the day of the month for this monthly purchase.</source>
        <translation>Bitte wählen Sie den Tag des Monats für diesen monatlichen Einkauf.</translation>
    </message>
</context>
<context>
    <name>RecordLists</name>
    <message>
        <source>bought at %1:%2</source>
        <translation>gekauft um %1:%2 Uhr</translation>
    </message>
    <message>
        <source>This list could not be read</source>
        <translation>Diese Liste konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>The program brovanta-data checks files and brings copies back.</source>
        <translation>Das Programm brovanta-data prüft Dateien und holt Kopien zurück.</translation>
    </message>
    <message>
        <source>Nothing found for &quot;%1&quot; %2</source>
        <translation>Nichts gefunden zu „%1“ %2</translation>
    </message>
    <message>
        <source>Find and Clear show everything again.</source>
        <translation>„Suchen“ und „Leeren“ zeigen wieder alles.</translation>
    </message>
    <message>
        <source>Nothing of this choice %1</source>
        <translation>Nichts aus dieser Auswahl %1</translation>
    </message>
    <message>
        <source>All Stores and All Categories show everything again.</source>
        <translation>„Alle Läden“ und „Alle Kategorien“ zeigen wieder alles.</translation>
    </message>
    <message>
        <source>No coupons %1</source>
        <translation>Keine Gutscheine %1</translation>
    </message>
    <message>
        <source>Add one with +, or get new ones by Update.</source>
        <translation>Mit + einen hinzufügen oder neue mit „Aktualisieren“ holen.</translation>
    </message>
    <message>
        <source>No saved web searches %1</source>
        <translation>Keine gespeicherten Websuchen %1</translation>
    </message>
    <message>
        <source>Search the web shops with +.</source>
        <translation>Mit + in den Webläden suchen.</translation>
    </message>
    <message>
        <source>Nothing bought %1</source>
        <translation>Nichts gekauft %1</translation>
    </message>
    <message>
        <source>Products that you mark as purchased are shown here.</source>
        <translation>Hier steht, was Sie als gekauft markieren.</translation>
    </message>
    <message>
        <source>Nothing to buy %1</source>
        <translation>Nichts zu kaufen %1</translation>
    </message>
    <message>
        <source>Add a product with +, or choose another time above.</source>
        <translation>Mit + ein Produkt hinzufügen oder oben eine andere Zeit wählen.</translation>
    </message>
    <message>
        <source>Find and Clear, All Stores and All Categories together show everything again.</source>
        <translation>Suchen und Leeren, Alle Läden und Alle Kategorien zusammen zeigen wieder alles.</translation>
    </message>
</context>
<context>
    <name>RecordRow</name>
    <message>
        <source>due today</source>
        <translation>heute fällig</translation>
    </message>
    <message>
        <source>due tomorrow</source>
        <translation>morgen fällig</translation>
    </message>
    <message>
        <source>in %1 days</source>
        <translation>in %1 Tagen</translation>
    </message>
    <message>
        <source>1 day overdue</source>
        <translation>1 Tag überfällig</translation>
    </message>
    <message>
        <source>%1 days overdue</source>
        <translation>%1 Tage überfällig</translation>
    </message>
    <message>
        <source>daily</source>
        <translation>täglich</translation>
    </message>
    <message>
        <source>every %1 days</source>
        <translation>alle %1 Tage</translation>
    </message>
    <message>
        <source>weekly</source>
        <translation>wöchentlich</translation>
    </message>
    <message>
        <source>every %1 weeks</source>
        <translation>alle %1 Wochen</translation>
    </message>
    <message>
        <source>yearly</source>
        <translation>jährlich</translation>
    </message>
    <message>
        <source>monthly</source>
        <translation>monatlich</translation>
    </message>
    <message>
        <source>every %1 months</source>
        <translation>alle %1 Monate</translation>
    </message>
</context>
<context>
    <name>ResultPage</name>
    <message>
        <source>There was an error while opening the selected search result in Internet Explorer.</source>
        <translation>Beim Öffnen des ausgewählten Suchergebnisses im Browser ist ein Fehler aufgetreten.</translation>
    </message>
</context>
<context>
    <name>SearchForm</name>
    <message>
        <source>Brovanta</source>
        <translation>Brovanta</translation>
    </message>
    <message>
        <source>Please enter the category and name of the item that you want to find in the web stores.</source>
        <translation>Bitte geben Sie Kategorie und Namen des Artikels an, den Sie in den Webläden finden möchten.</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Web search</source>
        <translation>Websuche</translation>
    </message>
</context>
<context>
    <name>SearchProgressForm</name>
    <message>
        <source>Brovanta</source>
        <translation>Brovanta</translation>
    </message>
    <message>
        <source>Search agents</source>
        <translation>Suchagenten</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>SearchResultForm</name>
    <message>
        <source>Search Result</source>
        <translation>Suchergebnis</translation>
    </message>
    <message>
        <source>Search result</source>
        <translation>Suchergebnis</translation>
    </message>
    <message>
        <source>Web site:</source>
        <translation>Website:</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Url</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>SearchResultsForm</name>
    <message>
        <source>Search Results</source>
        <translation>Suchergebnisse</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>Suchergebnisse</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>UpdateForm</name>
    <message>
        <source>Brovanta</source>
        <translation>Brovanta</translation>
    </message>
    <message>
        <source>Brovanta Update</source>
        <translation>Brovanta aktualisieren</translation>
    </message>
    <message>
        <source>Finished steps</source>
        <translation>Fertige Schritte</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisierung</translation>
    </message>
</context>
<context>
    <name>brovanta::AgentList</name>
    <message>
        <source>Agent</source>
        <translation>Agent</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stand</translation>
    </message>
</context>
<context>
    <name>brovanta::CalendarPopup</name>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
</context>
<context>
    <name>brovanta::CommandBar</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Purchase</source>
        <translation>Kaufen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Mark as purchased</source>
        <translation>Als gekauft markieren</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Extras</translation>
    </message>
    <message>
        <source>Find: %1</source>
        <translation>Suche: %1</translation>
    </message>
</context>
<context>
    <name>brovanta::CouponPickerDialog</name>
    <message>
        <source>All Stores</source>
        <translation>Alle Läden</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Alle Kategorien</translation>
    </message>
    <message>
        <source>The coupons could not be read</source>
        <translation>Die Gutscheine konnten nicht gelesen werden</translation>
    </message>
    <message>
        <source>The program brovanta-data checks files and brings copies back.</source>
        <translation>Das Programm brovanta-data prüft Dateien und holt Kopien zurück.</translation>
    </message>
    <message>
        <source>Nothing found for &quot;%1&quot; %2</source>
        <translation>Nichts gefunden zu „%1“ %2</translation>
    </message>
    <message>
        <source>Find and Clear show everything again.</source>
        <translation>„Suchen“ und „Leeren“ zeigen wieder alles.</translation>
    </message>
    <message>
        <source>Nothing of this choice %1</source>
        <translation>Nichts aus dieser Auswahl %1</translation>
    </message>
    <message>
        <source>All Stores and All Categories show everything again.</source>
        <translation>„Alle Läden“ und „Alle Kategorien“ zeigen wieder alles.</translation>
    </message>
    <message>
        <source>No coupons %1</source>
        <translation>Keine Gutscheine %1</translation>
    </message>
    <message>
        <source>Add one with +, or choose another time above.</source>
        <translation>Mit + einen hinzufügen oder oben eine andere Zeit wählen.</translation>
    </message>
    <message>
        <source>There was an error while reading the database.</source>
        <translation>Beim Lesen der Datenbank ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>Do you want to permanently delete the selected coupon?</source>
        <translation>Möchten Sie den ausgewählten Gutschein endgültig löschen?</translation>
    </message>
    <message>
        <source>You must first select a coupon from the list to apply to the current product.</source>
        <translation>Bitte wählen Sie zuerst in der Liste den Gutschein, der auf dieses Produkt angewendet werden soll.</translation>
    </message>
    <message>
        <source>There was an error while applying the selected coupon to the current product.</source>
        <translation>Beim Anwenden des ausgewählten Gutscheins auf dieses Produkt ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>Find and Clear, All Stores and All Categories together show everything again.</source>
        <translation>Suchen und Leeren, Alle Läden und Alle Kategorien zusammen zeigen wieder alles.</translation>
    </message>
</context>
<context>
    <name>brovanta::CouponRow</name>
    <message>
        <source>Select Coupon</source>
        <translation>Gutschein auswählen</translation>
    </message>
    <message>
        <source>Add New Coupon</source>
        <translation>Neuer Gutschein</translation>
    </message>
    <message>
        <source>Coupon %1: </source>
        <translation>Gutschein %1: </translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>no longer in the database</source>
        <translation>nicht mehr in der Datenbank</translation>
    </message>
    <message>
        <source>found by the search</source>
        <translation>von der Suche gefunden</translation>
    </message>
    <message>
        <source>chosen by you</source>
        <translation>von Ihnen gewählt</translation>
    </message>
    <message>
        <source>The selected coupon was not found in the database.</source>
        <translation>Der ausgewählte Gutschein ist nicht in der Datenbank.</translation>
    </message>
    <message>
        <source>There was an error whiile searching for discounts for the current product.</source>
        <translation>Beim Suchen nach Rabatten für dieses Produkt ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>Brovanta could not find any discounts for the current product.</source>
        <translation>Brovanta hat keine Rabatte für dieses Produkt gefunden.</translation>
    </message>
    <message>
        <source>Brovanta found %1 discounts for the current product.<byte value="xd"/>
<byte value="xd"/>
Please review and validate each discount applied.</source>
        <translation>Brovanta hat %1 Rabatte für dieses Produkt gefunden.<byte value="xd"/>
<byte value="xd"/>
Bitte sehen Sie jeden angewendeten Rabatt durch und prüfen Sie ihn.</translation>
    </message>
    <message>
        <source>Coupon %1</source>
        <translation>Gutschein %1</translation>
    </message>
</context>
<context>
    <name>brovanta::DiscountDialog</name>
    <message>
        <source>Coupon</source>
        <translation>Gutschein</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Internet Code</source>
        <translation>Internetcode</translation>
    </message>
    <message>
        <source>Store Coupon</source>
        <translation>Ladengutschein</translation>
    </message>
    <message>
        <source>Mail In Rebate</source>
        <translation>Rabatt per Post</translation>
    </message>
    <message>
        <source>Percent (%)</source>
        <translation>Prozent (%)</translation>
    </message>
    <message>
        <source>Amount ($)</source>
        <translation>Betrag ($)</translation>
    </message>
    <message>
        <source>Start date</source>
        <translation>Gültig ab</translation>
    </message>
    <message>
        <source>Has a start date</source>
        <translation>Hat ein Anfangsdatum</translation>
    </message>
    <message>
        <source>End date</source>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source>Has an end date</source>
        <translation>Hat ein Enddatum</translation>
    </message>
    <message>
        <source>There was an error while opening the selected coupon in Internet Explorer.</source>
        <translation>Beim Öffnen des ausgewählten Gutscheins im Browser ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>The store name has more than 50 characters.</source>
        <translation>Der Name des Ladens hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>The category name has more than 50 characters.</source>
        <translation>Der Name der Kategorie hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>You must select a value type for this discount.</source>
        <translation>Bitte wählen Sie die Art des Werts für diesen Rabatt.</translation>
    </message>
    <message>
        <source>You must select a discount type for this discount.</source>
        <translation>Bitte wählen Sie eine Art für diesen Rabatt.</translation>
    </message>
    <message>
        <source>The discount name can not be empty.</source>
        <translation>Der Name des Rabatts darf nicht leer sein.</translation>
    </message>
    <message>
        <source>The discount name has more than 50 characters.</source>
        <translation>Der Name des Rabatts hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>The product name has more than 50 characters.</source>
        <translation>Der Name des Produkts hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>There was an error while saving the discount data to the database.</source>
        <translation>Beim Speichern des Rabatts in der Datenbank ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>none</source>
        <translation>ohne</translation>
    </message>
</context>
<context>
    <name>brovanta::ListFilters</name>
    <message>
        <source>All Stores</source>
        <translation>Alle Läden</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Alle Kategorien</translation>
    </message>
</context>
<context>
    <name>brovanta::MainDialog</name>
    <message>
        <source>Products</source>
        <translation>Produkte</translation>
    </message>
    <message>
        <source>Coupons</source>
        <translation>Gutscheine</translation>
    </message>
    <message>
        <source>Purchases</source>
        <translation>Einkäufe</translation>
    </message>
    <message>
        <source>Web searches</source>
        <translation>Websuchen</translation>
    </message>
    <message>
        <source>There was an error while reading the database.</source>
        <translation>Beim Lesen der Datenbank ist ein Fehler aufgetreten.</translation>
    </message>
</context>
<context>
    <name>brovanta::NameCombo</name>
    <message>
        <source>none</source>
        <translation>ohne</translation>
    </message>
</context>
<context>
    <name>brovanta::OptionalDateEdit</name>
    <message>
        <source>none</source>
        <translation>ohne</translation>
    </message>
</context>
<context>
    <name>brovanta::OptionsDialog</name>
    <message>
        <source>United States</source>
        <translation>Vereinigte Staaten</translation>
    </message>
    <message>
        <source>Canada</source>
        <translation>Kanada</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>Australien</translation>
    </message>
    <message>
        <source>United Kingdom</source>
        <translation>Vereinigtes Königreich</translation>
    </message>
    <message>
        <source>Germany</source>
        <translation>Deutschland</translation>
    </message>
    <message>
        <source>France</source>
        <translation>Frankreich</translation>
    </message>
    <message>
        <source>Italy</source>
        <translation>Italien</translation>
    </message>
    <message>
        <source>Spain</source>
        <translation>Spanien</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japan</translation>
    </message>
    <message>
        <source>Austria</source>
        <translation>Österreich</translation>
    </message>
    <message>
        <source>Belgium</source>
        <translation>Belgien</translation>
    </message>
    <message>
        <source>Denmark</source>
        <translation>Dänemark</translation>
    </message>
    <message>
        <source>New Zealand</source>
        <translation>Neuseeland</translation>
    </message>
    <message>
        <source>Finland</source>
        <translation>Finnland</translation>
    </message>
    <message>
        <source>Greece</source>
        <translation>Griechenland</translation>
    </message>
    <message>
        <source>Ireland</source>
        <translation>Irland</translation>
    </message>
    <message>
        <source>Luxembourg</source>
        <translation>Luxemburg</translation>
    </message>
    <message>
        <source>Netherlands</source>
        <translation>Niederlande</translation>
    </message>
    <message>
        <source>Norway</source>
        <translation>Norwegen</translation>
    </message>
    <message>
        <source>Sweden</source>
        <translation>Schweden</translation>
    </message>
    <message>
        <source>Switzerland</source>
        <translation>Schweiz</translation>
    </message>
    <message>
        <source>The tax must be a valid number.</source>
        <translation>Die Steuer muss eine gültige Zahl sein.</translation>
    </message>
    <message>
        <source>There was an error while saving the Brovanta options to the registry.</source>
        <translation>Beim Speichern der Einstellungen von Brovanta ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>none</source>
        <translation>ohne</translation>
    </message>
</context>
<context>
    <name>brovanta::PeriodSelector</name>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message>
        <source>View: %1</source>
        <translation>Ansicht: %1</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
</context>
<context>
    <name>brovanta::PickerBar</name>
    <message>
        <source>New coupon</source>
        <translation>Neuer Gutschein</translation>
    </message>
    <message>
        <source>Edit coupon</source>
        <translation>Gutschein bearbeiten</translation>
    </message>
    <message>
        <source>Delete coupon</source>
        <translation>Gutschein löschen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find: %1</source>
        <translation>Suche: %1</translation>
    </message>
</context>
<context>
    <name>brovanta::ProductDialog</name>
    <message>
        <source>Purchase</source>
        <translation>Einkauf</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Purchase Date:</source>
        <translation>Kaufdatum:</translation>
    </message>
    <message>
        <source>You must select the purchase type for this product.</source>
        <translation>Bitte wählen Sie die Kaufart für dieses Produkt.</translation>
    </message>
    <message>
        <source>The product name can not be empty.</source>
        <translation>Der Name des Produkts darf nicht leer sein.</translation>
    </message>
    <message>
        <source>The product name has more than 50 characters.</source>
        <translation>Der Name des Produkts hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>The unit type has more than 50 characters.</source>
        <translation>Die Einheit hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>The store name has more than 50 characters.</source>
        <translation>Der Name des Ladens hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>The category name has more than 50 characters.</source>
        <translation>Der Name der Kategorie hat mehr als 50 Zeichen.</translation>
    </message>
    <message>
        <source>You must select a purchase type for this product.</source>
        <translation>Bitte wählen Sie eine Kaufart für dieses Produkt.</translation>
    </message>
    <message>
        <source>There was an error while saving the product data to the database.</source>
        <translation>Beim Speichern des Produkts in der Datenbank ist ein Fehler aufgetreten.</translation>
    </message>
</context>
<context>
    <name>brovanta::ResultList</name>
    <message>
        <source>Item</source>
        <translation>Artikel</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Descr</source>
        <translation>Beschr.</translation>
    </message>
    <message>
        <source>Url</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stand</translation>
    </message>
</context>
<context>
    <name>brovanta::SearchDialog</name>
    <message>
        <source>There was an error while loading the web search agents configuration file.<byte value="xd"/>
<byte value="xd"/>
Please use the Update command to download the latest web search agents configuration file.</source>
        <translation>Beim Laden der Konfigurationsdatei der Suchagenten ist ein Fehler aufgetreten.<byte value="xd"/>
<byte value="xd"/>
Bitte laden Sie mit „Aktualisieren“ die neueste Konfigurationsdatei der Suchagenten herunter.</translation>
    </message>
    <message>
        <source>There are no search categories defined in the web search agents configuration file.<byte value="xd"/>
<byte value="xd"/>
Please use the Update command to download the latest web search agents configuration file.</source>
        <translation>In der Konfigurationsdatei der Suchagenten stehen keine Kategorien.<byte value="xd"/>
<byte value="xd"/>
Bitte laden Sie mit „Aktualisieren“ die neueste Konfigurationsdatei der Suchagenten herunter.</translation>
    </message>
    <message>
        <source>You must first enter the item name for the item that you want to search for.</source>
        <translation>Bitte geben Sie zuerst den Namen des Artikels ein, den Sie suchen.</translation>
    </message>
    <message>
        <source>You must first select the item category for the item that you want to search for.</source>
        <translation>Bitte wählen Sie zuerst die Kategorie des Artikels, den Sie suchen.</translation>
    </message>
</context>
<context>
    <name>brovanta::SearchHeader</name>
    <message>
        <source>Web search</source>
        <translation>Websuche</translation>
    </message>
</context>
<context>
    <name>brovanta::SearchProgressDialog</name>
    <message>
        <source>Starting the web search agents....</source>
        <translation>Die Suchagenten werden gestartet …</translation>
    </message>
    <message>
        <source>There was an error while starting the search agents for the selected category.</source>
        <translation>Beim Starten der Suchagenten für die ausgewählte Kategorie ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>There was an error while starting the search.</source>
        <translation>Beim Starten der Suche ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>Brovanta is searching the internet...</source>
        <translation>Brovanta sucht im Internet …</translation>
    </message>
    <message>
        <source>%1 results</source>
        <translation>Ergebnisse: %1</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>gescheitert</translation>
    </message>
    <message>
        <source>searching</source>
        <translation>sucht</translation>
    </message>
    <message>
        <source>Brovanta found %1 search results.</source>
        <translation>Brovanta hat %1 Suchergebnisse gefunden.</translation>
    </message>
    <message>
        <source>Brovanta found no search results.</source>
        <translation>Brovanta hat keine Suchergebnisse gefunden.</translation>
    </message>
    <message>
        <source>There was an error while saving the search results.<byte value="xd"/>
Please try your search again.</source>
        <translation>Beim Speichern der Suchergebnisse ist ein Fehler aufgetreten.<byte value="xd"/>
Bitte versuchen Sie die Suche noch einmal.</translation>
    </message>
</context>
<context>
    <name>brovanta::SearchResultViewer</name>
    <message>
        <source>Search: </source>
        <translation>Suche: </translation>
    </message>
</context>
<context>
    <name>brovanta::SearchResultsDialog</name>
    <message>
        <source>View result</source>
        <translation>Ergebnis ansehen</translation>
    </message>
    <message>
        <source>View result (Enter)</source>
        <translation>Ergebnis ansehen (Eingabetaste)</translation>
    </message>
    <message>
        <source>Open in the web browser</source>
        <translation>Im Browser öffnen</translation>
    </message>
    <message>
        <source>Delete result</source>
        <translation>Ergebnis löschen</translation>
    </message>
    <message>
        <source>No results</source>
        <translation>Keine Ergebnisse</translation>
    </message>
    <message>
        <source>Search again with other words.</source>
        <translation>Suchen Sie noch einmal mit anderen Wörtern.</translation>
    </message>
    <message>
        <source>The results could not be read</source>
        <translation>Die Ergebnisse konnten nicht gelesen werden</translation>
    </message>
    <message>
        <source>There was an error while reading the search results from the database.</source>
        <translation>Beim Lesen der Suchergebnisse aus der Datenbank ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>You must first select the search result that you want to view.</source>
        <translation>Bitte wählen Sie zuerst das Suchergebnis, das Sie ansehen möchten.</translation>
    </message>
    <message>
        <source>There was an error while opening the selected search result.</source>
        <translation>Beim Öffnen des ausgewählten Suchergebnisses ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>You must first select the search result that you want to delete.</source>
        <translation>Bitte wählen Sie zuerst das Suchergebnis, das Sie löschen möchten.</translation>
    </message>
    <message>
        <source>Do you want to permanently delete the selected search result?</source>
        <translation>Möchten Sie das ausgewählte Suchergebnis endgültig löschen?</translation>
    </message>
    <message>
        <source>There was an error while deleting the selected search result.</source>
        <translation>Beim Löschen des ausgewählten Suchergebnisses ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>There was an error while saving the search results to the database.</source>
        <translation>Beim Speichern der Suchergebnisse in der Datenbank ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>Search: %1</source>
        <translation>Suche: %1</translation>
    </message>
</context>
<context>
    <name>brovanta::UpdateDialog</name>
    <message>
        <source>Initializing update....</source>
        <translation>Aktualisierung beginnt …</translation>
    </message>
    <message>
        <source>Aborting update....</source>
        <translation>Aktualisierung wird abgebrochen …</translation>
    </message>
    <message>
        <source>Updating search agents...</source>
        <translation>Suchagenten werden aktualisiert …</translation>
    </message>
    <message>
        <source>Updating search agents: done.</source>
        <translation>Suchagenten: fertig.</translation>
    </message>
    <message>
        <source>Failed to download search agents.</source>
        <translation>Die Suchagenten ließen sich nicht herunterladen.</translation>
    </message>
    <message>
        <source>Failed to update search agents.</source>
        <translation>Die Suchagenten ließen sich nicht aktualisieren.</translation>
    </message>
    <message>
        <source>Updating stores...</source>
        <translation>Läden werden aktualisiert …</translation>
    </message>
    <message>
        <source>Updating stores: done.</source>
        <translation>Läden: fertig.</translation>
    </message>
    <message>
        <source>Failed to update stores.</source>
        <translation>Die Läden ließen sich nicht aktualisieren.</translation>
    </message>
    <message>
        <source>Updating categories...</source>
        <translation>Kategorien werden aktualisiert …</translation>
    </message>
    <message>
        <source>Updating categories: done.</source>
        <translation>Kategorien: fertig.</translation>
    </message>
    <message>
        <source>Failed to update categories.</source>
        <translation>Die Kategorien ließen sich nicht aktualisieren.</translation>
    </message>
    <message>
        <source>Updating coupons...</source>
        <translation>Gutscheine werden aktualisiert …</translation>
    </message>
    <message>
        <source>Updating coupons: done.</source>
        <translation>Gutscheine: fertig.</translation>
    </message>
    <message>
        <source>Failed to update coupons.</source>
        <translation>Die Gutscheine ließen sich nicht aktualisieren.</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
</context>
</TS>
