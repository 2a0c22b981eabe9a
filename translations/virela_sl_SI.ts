<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sl_SI">
<context>
    <name>CHeighMapFactory</name>
    <message>
        <source>Error</source>
        <translation>Napaka</translation>
    </message>
    <message>
        <source>Could not open DEM terrain file.</source>
        <translation>Datoteke z DMR terena ni bilo mogoče odpreti.</translation>
    </message>
    <message>
        <source>Error reading DEM terrain file.</source>
        <translation>Napaka pri branju datoteke z DMR terena.</translation>
    </message>
    <message>
        <source>Line %1: &quot;%2&quot; is not a number.</source>
        <translation>Vrstica %1: »%2« ni število.</translation>
    </message>
    <message>
        <source>Line %1: the coordinate %2 lies outside -%3 to %3 m.</source>
        <translation>Vrstica %1: koordinata %2 je zunaj meja od -%3 do %3 m.</translation>
    </message>
    <message>
        <source>Line %1: the height %2 lies outside -%3 to %3 m.</source>
        <translation>Vrstica %1: višina %2 je zunaj meja od -%3 do %3 m.</translation>
    </message>
    <message>
        <source>Line %1: the points do not form a grid of %2 rows of %3 points, with X changing along each row and Y from row to row.</source>
        <translation>Vrstica %1: točke ne tvorijo mreže %2 vrstic po %3 točk, pri kateri se X spreminja vzdolž vrstice, Y pa od vrstice do vrstice.</translation>
    </message>
</context>
<context>
    <name>CRainFactory</name>
    <message>
        <source>Computing moisture</source>
        <translation>Računam vlažnost</translation>
    </message>
</context>
<context>
    <name>CSunFactory</name>
    <message>
        <source>Computing sunniness</source>
        <translation>Računam osončenost</translation>
    </message>
</context>
<context>
    <name>CTerrainNormalsFactory</name>
    <message>
        <source>Computing normals</source>
        <translation>Računam normale</translation>
    </message>
</context>
<context>
    <name>CWindFactory</name>
    <message>
        <source>Computing windiness</source>
        <translation>Računam vetrovnost</translation>
    </message>
</context>
<context>
    <name>EcosystemRender</name>
    <message>
        <source>Error</source>
        <translation>Napaka</translation>
    </message>
    <message>
        <source>Could not open bark texture file.</source>
        <translation>Datoteke s teksturo lubja ni bilo mogoče odpreti.</translation>
    </message>
    <message>
        <source>Frames take more than half a second: View &gt; &quot;Fast distant trees&quot; (Ctrl+Shift+F) draws far trees faster.</source>
        <translation>Sličice trajajo več kot pol sekunde: Pogled &gt; »Hitra oddaljena drevesa« (Ctrl+Shift+F) hitreje izriše daljna drevesa.</translation>
    </message>
    <message>
        <source>Could not open file.</source>
        <translation>Datoteke ni bilo mogoče odpreti.</translation>
    </message>
    <message>
        <source>These species are drawn with the default tree.</source>
        <translation>Te vrste so izrisane s privzetim drevesom.</translation>
    </message>
</context>
<context>
    <name>EcosystemStatistics</name>
    <message>
        <source>Ecosystem statistics</source>
        <translation>Statistika ekosistema</translation>
    </message>
    <message>
        <source>rendered only</source>
        <translation>samo izrisane</translation>
    </message>
    <message>
        <source>Living species:</source>
        <translation>Žive vrste:</translation>
    </message>
    <message>
        <source>Bush</source>
        <translation>Grm</translation>
    </message>
    <message>
        <source>Weeping willow</source>
        <translation>Vrba žalujka</translation>
    </message>
    <message>
        <source>Maple</source>
        <translation>Javor</translation>
    </message>
    <message>
        <source>Pine</source>
        <translation>Bor</translation>
    </message>
    <message>
        <source>Beech</source>
        <translation>Bukev</translation>
    </message>
    <message>
        <source>Tip: right click on graph to determine year and number of plants.</source>
        <translation>Namig: desni klik na graf pokaže leto in število rastlin.</translation>
    </message>
    <message>
        <source>Current value:</source>
        <translation>Trenutna vrednost:</translation>
    </message>
    <message>
        <source>Save as CSV…</source>
        <translation>Shrani kot CSV …</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zapri</translation>
    </message>
</context>
<context>
    <name>LatexExport</name>
    <message>
        <source>To model the tree we have chosen following scalar parameters: </source>
        <translation>Drevo smo modelirali z naslednjimi skalarnimi parametri: </translation>
    </message>
    <message>
        <source> and </source>
        <translation> in </translation>
    </message>
    <message>
        <source>Branch distribution</source>
        <translation>Porazdelitev žil</translation>
    </message>
    <message>
        <source>is determined for all orders</source>
        <translation>določimo za vse rede</translation>
    </message>
    <message>
        <source>where</source>
        <translation>kjer sta</translation>
    </message>
    <message>
        <source>are nonnegative whole numbers),</source>
        <translation>nenegativni celi števili),</translation>
    </message>
    <message>
        <source>with equation \ref{eqn:porazdelitevZilGW}. Values</source>
        <translation>z enačbo \ref{eqn:porazdelitevZilGW}. Vrednosti</translation>
    </message>
    <message>
        <source>are calculated from both graphs, that are given with polylines</source>
        <translation>izračunamo iz obeh grafov, podanih z lomljenkama</translation>
    </message>
    <message>
        <source>Branching angle between dividing subbranches,</source>
        <translation>Kot razvejitve med podvejama,</translation>
    </message>
    <message>
        <source>, is determined for all orders</source>
        <translation>, določimo za vse rede</translation>
    </message>
    <message>
        <source>using equation \ref{eqn:kotVejitveGW}. Needed parameters</source>
        <translation>z enačbo \ref{eqn:kotVejitveGW}. Potrebna parametra</translation>
    </message>
    <message>
        <source>in mentioned equation</source>
        <translation>v omenjeni enačbi</translation>
    </message>
    <message>
        <source>are defined using two graphs,</source>
        <translation>določimo z dvema grafoma,</translation>
    </message>
    <message>
        <source>given as polylines</source>
        <translation>podanima kot lomljenki</translation>
    </message>
    <message>
        <source>Minimum relative branch length,</source>
        <translation>Najmanjšo relativno dolžino veje,</translation>
    </message>
    <message>
        <source> using equation \ref{eqn:minCharacteristicLengthGW}, substituting</source>
        <translation> z enačbo \ref{eqn:minCharacteristicLengthGW}, kjer vstavimo</translation>
    </message>
    <message>
        <source>Maximum relative branch length,</source>
        <translation>Največjo relativno dolžino veje,</translation>
    </message>
    <message>
        <source>using equation \ref{eqn:maxCharacteristicLengthGW}, substituting</source>
        <translation>z enačbo \ref{eqn:maxCharacteristicLengthGW}, kjer vstavimo</translation>
    </message>
    <message>
        <source>Branch length scaling factor,</source>
        <translation>Faktor skaliranja dolžine veje,</translation>
    </message>
    <message>
        <source>using equation \ref{eqn:lengthScalingGW}, substituting</source>
        <translation>z enačbo \ref{eqn:lengthScalingGW}, kjer vstavimo</translation>
    </message>
    <message>
        <source>Gravimorphism impact,</source>
        <translation>Vpliv gravimorfizma,</translation>
    </message>
    <message>
        <source>using equation \ref{eqn:gravimorphismGW}, substituting</source>
        <translation>z enačbo \ref{eqn:gravimorphismGW}, kjer vstavimo</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Bosket</source>
        <translation>Bosket</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Izhod</translation>
    </message>
    <message>
        <source>&amp;Add view</source>
        <translation>&amp;Dodaj pogled</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Uporaba</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;O programu</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datoteka</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Urejanje</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Pogled</translation>
    </message>
    <message>
        <source>&amp;Navigation</source>
        <translation>&amp;Navigacija</translation>
    </message>
    <message>
        <source>Tree &amp;animation</source>
        <translation>&amp;Animacija drevesa</translation>
    </message>
    <message>
        <source>&amp;Ecosystem simulation</source>
        <translation>&amp;Simulacija ekosistema</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Po&amp;moč</translation>
    </message>
    <message>
        <source>Tree tools</source>
        <translation>Orodja za drevo</translation>
    </message>
    <message>
        <source>Ecosystem tools</source>
        <translation>Orodja za ekosistem</translation>
    </message>
    <message>
        <source>Select &amp;next tree parameters (tree edit mode)</source>
        <translation>Izberi &amp;naslednje parametre drevesa (urejanje drevesa)</translation>
    </message>
    <message>
        <source>&amp;Enlarge leave size</source>
        <translation>&amp;Povečaj liste</translation>
    </message>
    <message>
        <source>&amp;Reduce leave size</source>
        <translation>&amp;Zmanjšaj liste</translation>
    </message>
    <message>
        <source>Show &amp;ecosystem</source>
        <translation>Prikaži &amp;ekosistem</translation>
    </message>
    <message>
        <source>G&amp;row tree</source>
        <translation>&amp;Rast drevesa</translation>
    </message>
    <message>
        <source>&amp;Spin tree</source>
        <translation>&amp;Vrtenje drevesa</translation>
    </message>
    <message>
        <source>Sway tree in &amp;wind</source>
        <translation>&amp;Zibanje drevesa v vetru</translation>
    </message>
    <message>
        <source>&amp;Run simulation</source>
        <translation>&amp;Zaženi simulacijo</translation>
    </message>
    <message>
        <source>Load simulation</source>
        <translation>Naloži simulacijo</translation>
    </message>
    <message>
        <source>Save simulation</source>
        <translation>Shrani simulacijo</translation>
    </message>
    <message>
        <source>Autosave simulation</source>
        <translation>Samodejno shranjuj simulacijo</translation>
    </message>
    <message>
        <source>Set plant area</source>
        <translation>Nastavi območje rastlin</translation>
    </message>
    <message>
        <source>Edit random generator seeds</source>
        <translation>Uredi semena generatorja naključnih števil</translation>
    </message>
    <message>
        <source>Compute &amp;more simulation steps per one rendered frame</source>
        <translation>Izračunaj &amp;več korakov simulacije na izrisano sliko</translation>
    </message>
    <message>
        <source>Compute &amp;less simulation steps per one rendered frame</source>
        <translation>Izračunaj &amp;manj korakov simulacije na izrisano sliko</translation>
    </message>
    <message>
        <source>Move faster</source>
        <translation>Hitrejši premik</translation>
    </message>
    <message>
        <source>Move slower</source>
        <translation>Počasnejši premik</translation>
    </message>
    <message>
        <source>&amp;Navigation panel</source>
        <translation>&amp;Navigacijska plošča</translation>
    </message>
    <message>
        <source>Switch to next predefined camera (ecosystem mode)</source>
        <translation>Preklopi na naslednjo vnaprej določeno kamero (ekosistem)</translation>
    </message>
    <message>
        <source>Save camera as predefined</source>
        <translation>Shrani kamero kot vnaprej določeno</translation>
    </message>
    <message>
        <source>Reset camera position and rotation</source>
        <translation>Ponastavi položaj in zasuk kamere</translation>
    </message>
    <message>
        <source>Keep camera position above terrain surface (ecosystem mode)</source>
        <translation>Kamera ostane nad površjem terena (ekosistem)</translation>
    </message>
    <message>
        <source>Force camera position at terrain surface (ecosystem mode)</source>
        <translation>Kamera na površju terena (ekosistem)</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Premik gor</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Premik dol</translation>
    </message>
    <message>
        <source>Move left</source>
        <translation>Premik levo</translation>
    </message>
    <message>
        <source>Move right</source>
        <translation>Premik desno</translation>
    </message>
    <message>
        <source>Move forward</source>
        <translation>Premik naprej</translation>
    </message>
    <message>
        <source>Move backward</source>
        <translation>Premik nazaj</translation>
    </message>
    <message>
        <source>Rotate left</source>
        <translation>Zasuk levo</translation>
    </message>
    <message>
        <source>Rotate right</source>
        <translation>Zasuk desno</translation>
    </message>
    <message>
        <source>Rotate up</source>
        <translation>Zasuk gor</translation>
    </message>
    <message>
        <source>Rotate down</source>
        <translation>Zasuk dol</translation>
    </message>
    <message>
        <source>Rotate in</source>
        <translation>Nagib noter</translation>
    </message>
    <message>
        <source>Rotate out</source>
        <translation>Nagib ven</translation>
    </message>
    <message>
        <source>Move up more</source>
        <translation>Večji premik gor</translation>
    </message>
    <message>
        <source>Move down more</source>
        <translation>Večji premik dol</translation>
    </message>
    <message>
        <source>Move left more</source>
        <translation>Večji premik levo</translation>
    </message>
    <message>
        <source>Move right more</source>
        <translation>Večji premik desno</translation>
    </message>
    <message>
        <source>Move forward more</source>
        <translation>Večji premik naprej</translation>
    </message>
    <message>
        <source>Move backward more</source>
        <translation>Večji premik nazaj</translation>
    </message>
    <message>
        <source>Move up less</source>
        <translation>Manjši premik gor</translation>
    </message>
    <message>
        <source>Move down less</source>
        <translation>Manjši premik dol</translation>
    </message>
    <message>
        <source>Move left less</source>
        <translation>Manjši premik levo</translation>
    </message>
    <message>
        <source>Move right less</source>
        <translation>Manjši premik desno</translation>
    </message>
    <message>
        <source>Move forward less</source>
        <translation>Manjši premik naprej</translation>
    </message>
    <message>
        <source>Move backward less</source>
        <translation>Manjši premik nazaj</translation>
    </message>
    <message>
        <source>L&amp;oad tree parameters</source>
        <translation>&amp;Naloži parametre drevesa</translation>
    </message>
    <message>
        <source>&amp;Save tree parameters</source>
        <translation>&amp;Shrani parametre drevesa</translation>
    </message>
    <message>
        <source>&amp;Import tree 2.x parameters</source>
        <translation>&amp;Uvozi parametre drevesa 2.x</translation>
    </message>
    <message>
        <source>Export current tree geometry as &amp;vertices</source>
        <translation>Izvozi geometrijo drevesa kot &amp;oglišča</translation>
    </message>
    <message>
        <source>Export current tree as OB&amp;J…</source>
        <translation>Izvozi drevo kot OB&amp;J …</translation>
    </message>
    <message>
        <source>Export current tree as Latex formulas</source>
        <translation>Izvozi drevo kot formule LaTeX</translation>
    </message>
    <message>
        <source>Load DEM terrain model</source>
        <translation>Naloži model terena DMR</translation>
    </message>
    <message>
        <source>Set sky textures</source>
        <translation>Nastavi teksture neba</translation>
    </message>
    <message>
        <source>Export &amp;window image</source>
        <translation>Izvozi sliko o&amp;kna</translation>
    </message>
    <message>
        <source>&amp;Export custom resolution image</source>
        <translation>Izvozi sliko &amp;poljubne ločljivosti</translation>
    </message>
    <message>
        <source>Ani&amp;mation rendering mode (sequence export)</source>
        <translation>Način izrisa ani&amp;macije (izvoz zaporedja)</translation>
    </message>
    <message>
        <source>Load &amp;bark texture</source>
        <translation>Naloži teksturo &amp;lubja</translation>
    </message>
    <message>
        <source>Load lea&amp;f texture</source>
        <translation>Naloži teksturo l&amp;istov</translation>
    </message>
    <message>
        <source>Design &amp;strand distribution</source>
        <translation>Oblikuj porazdelitev &amp;žil</translation>
    </message>
    <message>
        <source>Design &amp;branching angles</source>
        <translation>Oblikuj &amp;kote razvejitve</translation>
    </message>
    <message>
        <source>Design branch absolute minimal &amp;length</source>
        <translation>Oblikuj absolutno najmanjšo &amp;dolžino vej</translation>
    </message>
    <message>
        <source>Design branch absolute maximal length</source>
        <translation>Oblikuj absolutno največjo dolžino vej</translation>
    </message>
    <message>
        <source>Design branch lenght s&amp;caling</source>
        <translation>Oblikuj &amp;skaliranje dolžine vej</translation>
    </message>
    <message>
        <source>Design &amp;gravimorphism impact distribution</source>
        <translation>Oblikuj porazdelitev vpliva &amp;gravimorfizma</translation>
    </message>
    <message>
        <source>&amp;Advanced tree &amp;properties</source>
        <translation>Napredne las&amp;tnosti drevesa</translation>
    </message>
    <message>
        <source>&amp;Undo design edit</source>
        <translation>&amp;Razveljavi spremembo oblike</translation>
    </message>
    <message>
        <source>Re&amp;do design edit</source>
        <translation>&amp;Uveljavi spremembo oblike</translation>
    </message>
    <message>
        <source>Show frame &amp;rate</source>
        <translation>Prikaži hit&amp;rost izrisa</translation>
    </message>
    <message>
        <source>&amp;Lighting enabled</source>
        <translation>&amp;Osvetlitev vključena</translation>
    </message>
    <message>
        <source>Display &amp;background sky</source>
        <translation>Prikaži &amp;nebo v ozadju</translation>
    </message>
    <message>
        <source>Render &amp;wireframe</source>
        <translation>Izriši &amp;žičnati model</translation>
    </message>
    <message>
        <source>Display lea&amp;ves</source>
        <translation>Prikaži &amp;liste</translation>
    </message>
    <message>
        <source>Colour &amp;uppon tree branches</source>
        <translation>O&amp;barvaj veje drevesa</translation>
    </message>
    <message>
        <source>&amp;High quality tree rendering (more polygons)</source>
        <translation>&amp;Kakovosten izris drevesa (več poligonov)</translation>
    </message>
    <message>
        <source>Do not draw &amp;trees (ecosystem mode)</source>
        <translation>Ne &amp;izrisuj dreves (ekosistem)</translation>
    </message>
    <message>
        <source>Do not refresh &amp;display, only run simulation (ecosystem mode)</source>
        <translation>Ne osvežuj &amp;prikaza, le simuliraj (ekosistem)</translation>
    </message>
    <message>
        <source>Fast distant trees</source>
        <translation>Hitra oddaljena drevesa</translation>
    </message>
    <message>
        <source>Show ecologic neighb&amp;orhood (ecosystem mode)</source>
        <translation>Prikaži ekološko &amp;soseščino (ekosistem)</translation>
    </message>
    <message>
        <source>Display terrain l&amp;and markings (South, North, East, West)</source>
        <translation>Prikaži o&amp;znake strani neba na terenu (jug, sever, vzhod, zahod)</translation>
    </message>
    <message>
        <source>Display terrain &amp;normals</source>
        <translation>Prikaži nor&amp;male terena</translation>
    </message>
    <message>
        <source>Display terrain &amp;inclination</source>
        <translation>Prikaži n&amp;aklon terena</translation>
    </message>
    <message>
        <source>Display terrain &amp;moisture</source>
        <translation>Prikaži &amp;vlažnost terena</translation>
    </message>
    <message>
        <source>Display terrain &amp;sunniness</source>
        <translation>Prikaži oson&amp;čenost terena</translation>
    </message>
    <message>
        <source>Display terrain &amp;windiness</source>
        <translation>Prikaži ve&amp;trovnost terena</translation>
    </message>
    <message>
        <source>Display sun</source>
        <translation>Prikaži sonce</translation>
    </message>
    <message>
        <source>Show &amp;statistics</source>
        <translation>Prikaži &amp;statistiko</translation>
    </message>
</context>
<context>
    <name>NavigationPanel</name>
    <message>
        <source>Navigation panel</source>
        <translation>Navigacijska plošča</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Pogled</translation>
    </message>
    <message>
        <source>Movement</source>
        <translation>Premikanje</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Obrat</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>Nagib</translation>
    </message>
    <message>
        <source>Yow</source>
        <translation>Zasuk</translation>
    </message>
    <message>
        <source>Turn left</source>
        <translation>Obrni levo</translation>
    </message>
    <message>
        <source>Turn right</source>
        <translation>Obrni desno</translation>
    </message>
    <message>
        <source>Look down</source>
        <translation>Poglej dol</translation>
    </message>
    <message>
        <source>Look up</source>
        <translation>Poglej gor</translation>
    </message>
    <message>
        <source>Roll left</source>
        <translation>Nagni levo</translation>
    </message>
    <message>
        <source>Roll right</source>
        <translation>Nagni desno</translation>
    </message>
    <message>
        <source>Terrain dimensions: 2500m x 2500m.</source>
        <translation>Velikost terena: 2500m x 2500m.</translation>
    </message>
    <message>
        <source>Move North</source>
        <translation>Premik proti severu</translation>
    </message>
    <message>
        <source>Move South</source>
        <translation>Premik proti jugu</translation>
    </message>
    <message>
        <source>Move West</source>
        <translation>Premik proti zahodu</translation>
    </message>
    <message>
        <source>Move East</source>
        <translation>Premik proti vzhodu</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Premik gor</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Premik dol</translation>
    </message>
    <message>
        <source>DEM:</source>
        <translation>DMR:</translation>
    </message>
    <message>
        <source>Travel forward</source>
        <translation>Potuj naprej</translation>
    </message>
    <message>
        <source>Travel backward</source>
        <translation>Potuj nazaj</translation>
    </message>
</context>
<context>
    <name>ObjExport</name>
    <message>
        <source>Could not write %1.</source>
        <translation>Datoteke %1 ni bilo mogoče zapisati.</translation>
    </message>
</context>
<context>
    <name>RunOptions</name>
    <message>
        <source>See virela-sim --help.</source>
        <translation>Glej virela-sim --help.</translation>
    </message>
    <message>
        <source>Unexpected argument &apos;%1&apos;. See virela-sim --help.</source>
        <translation>Nepričakovan argument &apos;%1&apos;. Glej virela-sim --help.</translation>
    </message>
    <message>
        <source>--steps needs a whole number of steps, not &apos;%1&apos;.</source>
        <translation>--steps potrebuje celo število korakov, ne &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>Give either --seeds or --seed, not both.</source>
        <translation>Podaj --seeds ali --seed, ne obeh.</translation>
    </message>
    <message>
        <source>--seeds needs thirteen whole numbers separated by commas, not &apos;%1&apos;.</source>
        <translation>--seeds potrebuje trinajst celih števil, ločenih z vejicami, ne &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>--seed needs a whole number from 1 up, not &apos;%1&apos;.</source>
        <translation>--seed potrebuje celo število od 1 navzgor, ne &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>--dem needs a file name.</source>
        <translation>--dem potrebuje ime datoteke.</translation>
    </message>
    <message>
        <source>--area needs four whole numbers FIRST_COLUMN,LAST_COLUMN,FIRST_ROW,LAST_ROW with first &lt;= last, not &apos;%1&apos;.</source>
        <translation>--area potrebuje štiri cela števila PRVI_STOLPEC,ZADNJI_STOLPEC,PRVA_VRSTICA,ZADNJA_VRSTICA s prvim &lt;= zadnjim, ne &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>--csv, --save and --out need a name.</source>
        <translation>--csv, --save in --out potrebujejo ime.</translation>
    </message>
    <message>
        <source>--snapshot-every needs a whole number of steps from 1 up, not &apos;%1&apos;.</source>
        <translation>--snapshot-every potrebuje celo število korakov od 1 navzgor, ne &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>--load and --resume need a file name.</source>
        <translation>--load in --resume potrebujeta ime datoteke.</translation>
    </message>
    <message>
        <source>--out names the folder of the snapshots: give --snapshot-every K too.</source>
        <translation>--out poimenuje mapo posnetkov: podaj tudi --snapshot-every K.</translation>
    </message>
    <message>
        <source>Give either --load or --resume, not both.</source>
        <translation>Podaj bodisi --load bodisi --resume, ne obojega.</translation>
    </message>
    <message>
        <source>--resume continues with the seeds and the plant area of its state: leave out --seeds, --seed and --area.</source>
        <translation>--resume nadaljuje s semeni in območjem rastlin svojega stanja: izpusti --seeds, --seed in --area.</translation>
    </message>
    <message>
        <source>Two outputs would be written to the same file %1.</source>
        <translation>Dva izhoda bi se zapisala v isto datoteko %1.</translation>
    </message>
    <message>
        <source>Usage: virela-sim [options]
Runs the ecosystem simulation of Virela without a window: the same steps,
statistics lines and simulation files as the window program, one run per call.

Start:
  --dem FILE           terrain from a DEM file (.dmr, 100 x 100 points) instead
                       of the compiled-in landscape
  --load FILE          continue a saved simulation (.sim) as the window program
                       continues one (the file keeps six digits, and not which
                       plants were dominated nor the last step&apos;s seed count, so
                       the continuation is not the saved run&apos;s own)
  --resume FILE        continue exactly from the state file (.sim.state) that
                       virela-sim writes beside every .sim: the same steps as if
                       the run had not stopped. Give the same terrain (--dem) as
                       the run that wrote it; its seeds and plant area come
                       with it (not with --load, --seeds, --seed or --area)
  --area X0,X1,Y0,Y1   plant area: grid columns X0 to X1 and rows Y0 to Y1
                       (default 25,75,25,75; a loaded simulation brings its own)
  --seeds S1,...,S13   the thirteen random stream seeds (default 1,2,...,13;
                       with --load they replace the streams stored in the file)
  --seed N             shorthand for the seeds 13N-12 to 13N (--seed 1 is the
                       default), for replicate sweeps
  --steps N            number of steps to simulate (default 100)

Output (missing folders are made; with a bad input nothing is written):
  --csv FILE           one CSV row per step: living plants, births, deaths by
                       dominance and by other causes per species, and the
                       step&apos;s milliseconds
  --snapshot-every K   save the simulation as &lt;step&gt;.sim after every K-th step
  --out DIR            folder of the snapshots (default: the working folder)
  --save FILE          save the final state
                       Beside every .sim goes its exact state, &lt;name&gt;.sim.state,
                       for --resume.
  --help               show this help
  --version            show the version and the source revision

Standard output carries the window program&apos;s lines: one statistics line per
step, save and load confirmations. Standard error shows a progress line when it
is a terminal, and a summary at the end. Ctrl+C stops after the current step
and leaves complete files.
Exit status: 0 done, 1 an output (standard output too) could not be written,
2 bad input, 128 + the signal number when interrupted.

Examples:
  virela-sim --steps 100 --seed 3 --dem my.dmr --csv runs/3.csv \
             --snapshot-every 30 --out runs/3 --save runs/3/final.sim
  virela-sim --resume runs/3/60.sim.state --dem my.dmr --steps 40 \
             --csv runs/3-rest.csv --save runs/3/final.sim
</source>
        <translation>Uporaba: virela-sim [možnosti]
Požene simulacijo ekosistema Virele brez okna: isti koraki, iste vrstice
statistike in iste datoteke simulacije kot v okenskem programu, en tek na klic.

Začetek:
  --dem FILE           teren iz datoteke DMR (.dmr, 100 x 100 točk) namesto
                       vgrajene pokrajine
  --load FILE          nadaljuj shranjeno simulacijo (.sim), kot jo nadaljuje
                       okenski program (datoteka hrani šest mest, ne pa tega,
                       katere rastline so bile dominirane, niti števila semen
                       zadnjega koraka, zato nadaljevanje ni tek, ki jo je
                       shranil)
  --resume FILE        nadaljuj natanko iz datoteke stanja (.sim.state), ki jo
                       virela-sim zapiše poleg vsake .sim: isti koraki, kot da
                       se tek ne bi ustavil. Podaj isti teren (--dem) kot tek,
                       ki jo je zapisal; semena in območje rastlin prinese
                       sama (ne z --load, --seeds, --seed ali --area)
  --area X0,X1,Y0,Y1   območje rastlin: stolpci mreže od X0 do X1 in vrstice od
                       Y0 do Y1 (privzeto 25,75,25,75; naložena simulacija
                       prinese svoje)
  --seeds S1,...,S13   trinajst semen naključnih tokov (privzeto 1,2,...,13;
                       z --load zamenjajo tokove, shranjene v datoteki)
  --seed N             okrajšava za semena od 13N-12 do 13N (--seed 1 so
                       privzeta), za serije ponovitev
  --steps N            število korakov simulacije (privzeto 100)

Izhod (manjkajoče mape se ustvarijo; ob slabem vhodu se ne zapiše nič):
  --csv FILE           ena vrstica CSV na korak: žive rastline, rojstva, smrti
                       zaradi dominiranosti in zaradi drugih vzrokov po vrstah
                       ter milisekunde koraka
  --snapshot-every K   shrani simulacijo kot &lt;korak&gt;.sim po vsakem K-tem koraku
  --out DIR            mapa posnetkov (privzeto: delovna mapa)
  --save FILE          shrani končno stanje
                       Poleg vsake .sim gre njeno natančno stanje,
                       &lt;ime&gt;.sim.state, za --resume.
  --help               pokaži to pomoč
  --version            pokaži različico in revizijo izvorne kode

Standardni izhod nosi vrstice okenskega programa: eno vrstico statistike na
korak ter potrditve shranjevanja in nalaganja. Standardni izhod za napake kaže
vrstico napredka, kadar je terminal, in povzetek na koncu. Ctrl+C ustavi po
trenutnem koraku in pusti cele datoteke.
Izhodni status: 0 končano, 1 izhoda (tudi standardnega) ni bilo mogoče zapisati,
2 slab vhod, 128 + številka signala ob prekinitvi.

Primera:
  virela-sim --steps 100 --seed 3 --dem my.dmr --csv runs/3.csv \
             --snapshot-every 30 --out runs/3 --save runs/3/final.sim
  virela-sim --resume runs/3/60.sim.state --dem my.dmr --steps 40 \
             --csv runs/3-rest.csv --save runs/3/final.sim
</translation>
    </message>
</context>
<context>
    <name>SimulationRun</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1: %2%</source>
        <translation>%1: %2 %</translation>
    </message>
    <message>
        <source>Could not use the DEM file %1: %2</source>
        <translation>Datoteke DMR %1 ni mogoče uporabiti: %2</translation>
    </message>
    <message>
        <source>Could not load the simulation %1: %2</source>
        <translation>Simulacije %1 ni mogoče naložiti: %2</translation>
    </message>
    <message>
        <source>The plant area %1,%2,%3,%4 reaches past the %5 x %6 grid.</source>
        <translation>Območje rastlin %1,%2,%3,%4 sega čez mrežo %5 x %6.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1 je mapa, ne datoteka.</translation>
    </message>
    <message>
        <source>Cannot write into the folder %1.</source>
        <translation>V mapo %1 ni mogoče pisati.</translation>
    </message>
    <message>
        <source>Cannot make the folder %1.</source>
        <translation>Mape %1 ni mogoče ustvariti.</translation>
    </message>
    <message>
        <source>Could not write the CSV file %1.</source>
        <translation>Datoteke CSV %1 ni mogoče zapisati.</translation>
    </message>
    <message>
        <source>Could not save %1: %2</source>
        <translation>%1 ni mogoče shraniti: %2</translation>
    </message>
    <message>
        <source>Step %1 of %2: %3 plants, %4 steps/s, about %5 left</source>
        <translation>Korak %1 od %2: %3 rastlin, %4 korakov/s, še približno %5</translation>
    </message>
    <message>
        <source>Interrupted. </source>
        <translation>Prekinjeno. </translation>
    </message>
    <message>
        <source>No step simulated; %1 plants living.</source>
        <translation>Noben korak ni simuliran; živih rastlin: %1.</translation>
    </message>
    <message>
        <source>Steps %1 to %2 in %3 (%4 steps/s); %5 plants living at the end, at most %6 after step %7.</source>
        <translation>Koraki od %1 do %2 v %3 (%4 korakov/s); na koncu živih rastlin: %5, največ %6 po koraku %7.</translation>
    </message>
    <message>
        <source>Could not write to standard output.</source>
        <translation>Na standardni izhod ni bilo mogoče pisati.</translation>
    </message>
    <message>
        <source>note: %1</source>
        <translation>opomba: %1</translation>
    </message>
    <message>
        <source>Could not continue from %1: %2</source>
        <translation>Iz %1 ni bilo mogoče nadaljevati: %2</translation>
    </message>
</context>
<context>
    <name>arbo::ParametriDrevesa</name>
    <message>
        <source>strand count</source>
        <translation>število pramenov</translation>
    </message>
    <message>
        <source>trunk height</source>
        <translation>višina debla</translation>
    </message>
    <message>
        <source>branch thickness per strand</source>
        <translation>relativna debelina veje na pramen</translation>
    </message>
    <message>
        <source>phyllotaxis angle</source>
        <translation>kot filotaksije</translation>
    </message>
    <message>
        <source>gravicentralism</source>
        <translation>gravicentralizem</translation>
    </message>
    <message>
        <source>leaves switch (0 or 1)</source>
        <translation>stikalo listov (0 ali 1)</translation>
    </message>
    <message>
        <source>leaf size</source>
        <translation>velikost listov</translation>
    </message>
    <message>
        <source>leaf density</source>
        <translation>gostota listov</translation>
    </message>
    <message>
        <source>wind gust speed</source>
        <translation>hitrost sunkov vetra</translation>
    </message>
    <message>
        <source>leaf type</source>
        <translation>vrsta listov</translation>
    </message>
    <message>
        <source>line %1: the file ends before the %2</source>
        <translation>vrstica %1: datoteka se konča, preden pride na vrsto %2</translation>
    </message>
    <message>
        <source>line %1: &quot;%2&quot; is not a valid %3</source>
        <translation>vrstica %1: »%2« ni veljavna vrednost (%3)</translation>
    </message>
    <message>
        <source>line %1: the %2 %3 lies outside %4 to %5</source>
        <translation>vrstica %1: %2 %3 je zunaj meja od %4 do %5</translation>
    </message>
    <message>
        <source>the file cannot be read</source>
        <translation>datoteke ni mogoče prebrati</translation>
    </message>
    <message>
        <source>the curves give values beyond the range of numbers</source>
        <translation>krivulje dajo vrednosti zunaj obsega števil</translation>
    </message>
    <message>
        <source>line %1: the %2 texture file name is missing or longer than 254 characters</source>
        <translation>vrstica %1: ime datoteke s teksturo (%2) manjka ali je daljše od 254 znakov</translation>
    </message>
    <message>
        <source>bark</source>
        <translation>lubje</translation>
    </message>
    <message>
        <source>leaf</source>
        <translation>listi</translation>
    </message>
    <message>
        <source>line %1: unexpected &quot;%2&quot; after the last curve</source>
        <translation>vrstica %1: nepričakovano »%2« za zadnjo krivuljo</translation>
    </message>
    <message>
        <source>vertex count of curve %1</source>
        <translation>število oglišč krivulje %1</translation>
    </message>
    <message>
        <source>vertex of curve %1</source>
        <translation>oglišče krivulje %1</translation>
    </message>
</context>
<context>
    <name>ecosystem::CEcosystemSimulation</name>
    <message>
        <source>Could not save simulation file.</source>
        <translation>Datoteke s simulacijo ni bilo mogoče shraniti.</translation>
    </message>
    <message>
        <source>Could not open simulation file.</source>
        <translation>Datoteke s simulacijo ni bilo mogoče odpreti.</translation>
    </message>
    <message>
        <source>The simulation file has another number of species.</source>
        <translation>Datoteka s simulacijo ima drugačno število vrst.</translation>
    </message>
    <message>
        <source>The simulation file is damaged.</source>
        <translation>Datoteka s simulacijo je poškodovana.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Napaka</translation>
    </message>
    <message>
        <source>Simulation</source>
        <translation>Simulacija</translation>
    </message>
    <message>
        <source>The plant area has no dry land: no plant can be sown anywhere on it. New plants grow only beside the existing ones.</source>
        <translation>Območje rastlin nima suhega kopnega: nikamor nanj ni mogoče posejati rastline. Nove rastline rastejo le ob obstoječih.</translation>
    </message>
    <message>
        <source>Could not save the state file.</source>
        <translation>Datoteke stanja ni bilo mogoče shraniti.</translation>
    </message>
    <message>
        <source>Could not open the state file.</source>
        <translation>Datoteke stanja ni bilo mogoče odpreti.</translation>
    </message>
    <message>
        <source>The state file was saved on another terrain:</source>
        <translation>Datoteka stanja je bila shranjena na drugem terenu:</translation>
    </message>
    <message>
        <source>The state file is damaged.</source>
        <translation>Datoteka stanja je poškodovana.</translation>
    </message>
</context>
<context>
    <name>ecosystem::CSimulationFile</name>
    <message>
        <source>Line %1: the file ends before the %2.</source>
        <translation>Vrstica %1: datoteka se konča, preden pride na vrsto %2.</translation>
    </message>
    <message>
        <source>Line %1: &quot;%2&quot; is not a valid %3.</source>
        <translation>Vrstica %1: »%2« ni veljavna vrednost (%3).</translation>
    </message>
    <message>
        <source>Line %1: the %2 %3 lies outside %4 to %5.</source>
        <translation>Vrstica %1: %2 %3 je zunaj meja od %4 do %5.</translation>
    </message>
    <message>
        <source>step number</source>
        <translation>številka koraka</translation>
    </message>
    <message>
        <source>number of species</source>
        <translation>število vrst</translation>
    </message>
    <message>
        <source>number of plants</source>
        <translation>število rastlin</translation>
    </message>
    <message>
        <source>grid column</source>
        <translation>stolpec mreže</translation>
    </message>
    <message>
        <source>grid row</source>
        <translation>vrstica mreže</translation>
    </message>
    <message>
        <source>position x</source>
        <translation>položaj x</translation>
    </message>
    <message>
        <source>position y</source>
        <translation>položaj y</translation>
    </message>
    <message>
        <source>position z</source>
        <translation>položaj z</translation>
    </message>
    <message>
        <source>plant number</source>
        <translation>številka rastline</translation>
    </message>
    <message>
        <source>age</source>
        <translation>starost</translation>
    </message>
    <message>
        <source>size</source>
        <translation>velikost</translation>
    </message>
    <message>
        <source>crown radius</source>
        <translation>polmer krošnje</translation>
    </message>
    <message>
        <source>penetration</source>
        <translation>prodornost</translation>
    </message>
    <message>
        <source>strength</source>
        <translation>moč</translation>
    </message>
    <message>
        <source>inclination</source>
        <translation>strmina</translation>
    </message>
    <message>
        <source>moisture</source>
        <translation>vlažnost</translation>
    </message>
    <message>
        <source>sunniness</source>
        <translation>osončenost</translation>
    </message>
    <message>
        <source>windiness</source>
        <translation>vetrovnost</translation>
    </message>
    <message>
        <source>height above water</source>
        <translation>višina nad vodo</translation>
    </message>
    <message>
        <source>age of death</source>
        <translation>starost ob smrti</translation>
    </message>
    <message>
        <source>number of plants to sow</source>
        <translation>število rastlin za setev</translation>
    </message>
    <message>
        <source>random stream state</source>
        <translation>stanje naključnega toka</translation>
    </message>
    <message>
        <source>plant area bound</source>
        <translation>meja območja rastlin</translation>
    </message>
    <message>
        <source>Line %1: the plant area, columns %2 to %3 and rows %4 to %5, does not fit the grid of %6 x %7 points.</source>
        <translation>Vrstica %1: območje rastlin, stolpci od %2 do %3 in vrstice od %4 do %5, ne leži v mreži %6 x %7 točk.</translation>
    </message>
    <message>
        <source>grid size</source>
        <translation>velikost mreže</translation>
    </message>
    <message>
        <source>checksum of the terrain</source>
        <translation>kontrolna vsota terena</translation>
    </message>
    <message>
        <source>dominated flag</source>
        <translation>oznaka dominiranosti</translation>
    </message>
    <message>
        <source>seed count</source>
        <translation>število semen</translation>
    </message>
    <message>
        <source>count</source>
        <translation>števec</translation>
    </message>
    <message>
        <source>dry-land flag</source>
        <translation>oznaka suhega kopnega</translation>
    </message>
</context>
<context>
    <name>ecosystem::CSimulationState</name>
    <message>
        <source>Line %1: more follows the last value.</source>
        <translation>Vrstica %1: za zadnjo vrednostjo sledi še kaj.</translation>
    </message>
    <message>
        <source>Line 1: this is not a state file of virela-sim.</source>
        <translation>Vrstica 1: to ni datoteka stanja programa virela-sim.</translation>
    </message>
    <message>
        <source>Line 2: no name of the terrain.</source>
        <translation>Vrstica 2: ni imena terena.</translation>
    </message>
</context>
<context>
    <name>gui::About</name>
    <message>
        <source>About Virela</source>
        <translation>O programu Virela</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Virela&lt;/h2&gt;&lt;p&gt;Bosket is an OpenGL application for modeling, rendering, animation and simulation of natural tree ecosystem.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Trees.&lt;/b&gt; Every tree is grown procedurally from a small set of parameters and twelve distribution curves: strands split at every branching, branches bend towards or away from the ground, and leaves gather at the branch ends. A tree can be grown from nothing, spun and swayed in the wind, saved and loaded as a parameter file, and exported as vertex geometry or images.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Ecosystems.&lt;/b&gt; Five plant species (a shrub, a weeping willow, a maple, a spruce and a beech) settle on a real landscape read from a digital elevation model. For every point of the terrain the program derives slope, sunniness over one day with terrain shadows, exposure to wind and moisture from rain running downhill. Plants are sown, grow, compete for space and die step by step; thirteen seeded random streams make every run repeatable. Walk or fly over the landscape while the simulation runs, and follow its statistics.&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Virela&lt;/h2&gt;&lt;p&gt;Bosket je aplikacija OpenGL za modeliranje, upodabljanje, animacijo in simulacijo naravnega drevesnega ekosistema.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Drevesa.&lt;/b&gt; Vsako drevo zraste proceduralno iz majhnega nabora parametrov in dvanajstih porazdelitvenih krivulj: žile se delijo ob vsaki razvejitvi, veje se upogibajo proti tlom ali od njih, listi se zberejo na koncih vej. Drevo lahko zraste iz nič, se vrti in ziblje v vetru, se shrani in naloži kot datoteka parametrov ter izvozi kot geometrija oglišč ali slike.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Ekosistemi.&lt;/b&gt; Pet rastlinskih vrst (grm, žalujka, javor, smreka in bukev) poseljuje resnično pokrajino, prebrano iz digitalnega modela reliefa. Za vsako točko terena program izračuna naklon, osončenost v enem dnevu s sencami terena, izpostavljenost vetru in vlažnost iz dežja, ki odteka po pobočju. Rastline se sejejo, rastejo, tekmujejo za prostor in odmirajo korak za korakom; trinajst tokov naključnih števil s semeni naredi vsak tek ponovljiv. Med simulacijo se sprehajajte ali letite nad pokrajino in spremljajte njeno statistiko.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>gui::AdvancedTreeProperties</name>
    <message>
        <source>Advanced tree properties</source>
        <translation>Napredne lastnosti drevesa</translation>
    </message>
    <message>
        <source>Tree age (number of strands):</source>
        <translation>Starost drevesa (število žil):</translation>
    </message>
    <message>
        <source>Trunk height:</source>
        <translation>Višina debla:</translation>
    </message>
    <message>
        <source>Branch relative thickness per strand:</source>
        <translation>Relativna debelina veje na žilo:</translation>
    </message>
    <message>
        <source>Gravicentralism (central trunk uprightness):</source>
        <translation>Gravicentralizem (pokončnost osrednjega debla):</translation>
    </message>
    <message>
        <source>Phyllotaxis angle (branch rotation along the trunk) :</source>
        <translation>Kot filotaksije (zasuk vej vzdolž debla) :</translation>
    </message>
    <message>
        <source>Spiral</source>
        <translation>Spiralno</translation>
    </message>
    <message>
        <source>Stacked</source>
        <translation>Naloženo</translation>
    </message>
    <message>
        <source>Staggered</source>
        <translation>Izmenično</translation>
    </message>
    <message>
        <source>Bunched</source>
        <translation>V šopu</translation>
    </message>
    <message>
        <source>Coniferous</source>
        <translation>Iglasto</translation>
    </message>
    <message>
        <source>Leaf type:</source>
        <translation>Vrsta listov:</translation>
    </message>
    <message>
        <source>Leaf density:</source>
        <translation>Gostota listov:</translation>
    </message>
    <message>
        <source>Leaf size:</source>
        <translation>Velikost listov:</translation>
    </message>
    <message>
        <source>Wind gust speed:</source>
        <translation>Hitrost sunkov vetra:</translation>
    </message>
    <message>
        <source>Wind nonuniform speed:</source>
        <translation>Hitrost neenakomernega vetra:</translation>
    </message>
    <message>
        <source>auto-proof</source>
        <translation>sprotni prikaz</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Uveljavi</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>V redu</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Prekliči</translation>
    </message>
</context>
<context>
    <name>gui::DistributionDesigner</name>
    <message>
        <source>Distribution designer</source>
        <translation>Oblikovalnik porazdelitve</translation>
    </message>
    <message>
        <source>Gravelius order distribution:</source>
        <translation>Porazdelitev po Graveliusovem redu:</translation>
    </message>
    <message>
        <source>Weibull order distribution:</source>
        <translation>Porazdelitev po Weibullovem redu:</translation>
    </message>
    <message>
        <source>Left click to add and move to modify a point or right click to remove.</source>
        <translation>Levi klik doda točko, premik miške jo spremeni, desni klik jo odstrani.</translation>
    </message>
    <message>
        <source>Selected level:</source>
        <translation>Izbrana raven:</translation>
    </message>
    <message>
        <source>no hover</source>
        <translation>ni izbire</translation>
    </message>
    <message>
        <source>color levels</source>
        <translation>obarvaj ravni</translation>
    </message>
    <message>
        <source>auto proof</source>
        <translation>sprotni prikaz</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>V redu</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Prekliči</translation>
    </message>
    <message>
        <source>G=%1-%2</source>
        <translation>G=%1-%2</translation>
    </message>
    <message>
        <source>W=%1-%2</source>
        <translation>W=%1-%2</translation>
    </message>
    <message>
        <source>G=%1</source>
        <translation>G=%1</translation>
    </message>
    <message>
        <source>W=%1</source>
        <translation>W=%1</translation>
    </message>
</context>
<context>
    <name>gui::EcosystemStatistics</name>
    <message>
        <source>plants</source>
        <translation>rastline</translation>
    </message>
    <message>
        <source>frame</source>
        <translation>sličica</translation>
    </message>
    <message>
        <source>step</source>
        <translation>korak</translation>
    </message>
    <message>
        <source>Species %1</source>
        <translation>Vrsta %1</translation>
    </message>
    <message>
        <source>%1 living</source>
        <translation>%1 žive</translation>
    </message>
    <message>
        <source>%1 drawn</source>
        <translation>%1 izrisane</translation>
    </message>
    <message>
        <source>Save statistics as CSV</source>
        <translation>Shrani statistiko kot CSV</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>Datoteke CSV (*.csv)</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Napaka</translation>
    </message>
    <message>
        <source>Could not save file.</source>
        <translation>Datoteke ni bilo mogoče shraniti.</translation>
    </message>
</context>
<context>
    <name>gui::Help</name>
    <message>
        <source>&lt;h3&gt;The tree model&lt;/h3&gt;&lt;p&gt;A tree is grown from its trunk base upwards, segment by segment. Two orders locate every segment: the &lt;b&gt;Gravelius order&lt;/b&gt; g is the branching order (0 for the trunk, one more each time growth passes into a side branch); the &lt;b&gt;Weibull order&lt;/b&gt; w is the depth, the number of segments from the root along the path. Every distribution is drawn as a pair of curves, one over g and one over w; the tree reads their product.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Strand distribution.&lt;/b&gt; The trunk is a bundle of strands (their number is the tree&apos;s age and sets its thickness). At every branching the strands are shared between the main branch and the side branch; the curve gives the share that stays in the main branch. A segment with few strands is thin; a branch with one strand ends and carries leaves.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Branching angles.&lt;/b&gt; The angle in degrees between the two branches of a split. Small angles give slim, upright crowns; large angles open the crown.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Branch lengths.&lt;/b&gt; The minimal and maximal relative branch length and the branch length scaling decide how long each segment grows.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Gravimorphism.&lt;/b&gt; How strongly, and in which direction (-180 to 180 degrees), branches of each order and depth turn towards or away from the ground: positive values lift them, negative values make them hang like a willow&apos;s. Gravicentralism keeps the central trunk upright.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Model drevesa&lt;/h3&gt;&lt;p&gt;Drevo raste od vznožja debla navzgor, segment za segmentom. Vsak segment določata dva reda: &lt;b&gt;Graveliusov red&lt;/b&gt; g je red razvejitve (0 za deblo, za eno več vsakič, ko rast preide v stransko vejo); &lt;b&gt;Weibullov red&lt;/b&gt; w je globina, število segmentov od korenine po poti. Vsaka porazdelitev je narisana kot par krivulj, ena nad g in ena nad w; drevo bere njun produkt.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Porazdelitev žil.&lt;/b&gt; Deblo je snop žil (njihovo število je starost drevesa in določa njegovo debelino). Ob vsaki razvejitvi se žile razdelijo med glavno in stransko vejo; krivulja pove delež, ki ostane v glavni veji. Segment z malo žilami je tanek; veja z eno žilo se konča in nosi liste.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Koti razvejitve.&lt;/b&gt; Kot v stopinjah med vejama razvejitve. Majhni koti dajo vitke, pokončne krošnje; veliki koti krošnjo odprejo.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Dolžine vej.&lt;/b&gt; Najmanjša in največja relativna dolžina veje ter skaliranje dolžine določajo, kako dolg zraste vsak segment.&lt;/p&gt;&lt;p&gt;&lt;b&gt;Gravimorfizem.&lt;/b&gt; Kako močno in v katero smer (od -180 do 180 stopinj) se veje posameznega reda in globine obračajo proti tlom ali od njih: pozitivne vrednosti jih dvigajo, negativne jih povesijo kot pri žalujki. Gravicentralizem ohranja osrednje deblo pokončno.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Designing a tree&lt;/h3&gt;&lt;ol&gt;&lt;li&gt;Switch to tree edit mode (Space) and pick a starting tree (Ctrl+Space steps through the species and the default tree).&lt;/li&gt;&lt;li&gt;Set the tree&apos;s age, trunk height and thickness in the advanced tree properties.&lt;/li&gt;&lt;li&gt;Design the strand distribution first: it decides the skeleton.&lt;/li&gt;&lt;li&gt;Then the branching angles, the branch lengths and their scaling.&lt;/li&gt;&lt;li&gt;Then gravimorphism, to lift or bend the branches.&lt;/li&gt;&lt;li&gt;Finally the leaves (type, density, size: Q and A) and the bark and leaf textures; grow (R), spin (O) or sway (Y) the tree to judge it, and save its parameters.&lt;/li&gt;&lt;/ol&gt;</source>
        <translation>&lt;h3&gt;Oblikovanje drevesa&lt;/h3&gt;&lt;ol&gt;&lt;li&gt;Preklopite v način urejanja drevesa (preslednica) in izberite začetno drevo (Ctrl+preslednica izbira med vrstami in privzetim drevesom).&lt;/li&gt;&lt;li&gt;V naprednih lastnostih drevesa nastavite starost drevesa, višino debla in debelino.&lt;/li&gt;&lt;li&gt;Najprej oblikujte porazdelitev žil: ta določi ogrodje.&lt;/li&gt;&lt;li&gt;Nato kote razvejitve, dolžine vej in njihovo skaliranje.&lt;/li&gt;&lt;li&gt;Nato gravimorfizem, da veje dvignete ali upognete.&lt;/li&gt;&lt;li&gt;Na koncu liste (vrsta, gostota, velikost: Q in A) ter teksturi lubja in listov; drevo rastite (R), vrtite (O) ali zibajte (Y), da ga ocenite, in shranite njegove parametre.&lt;/li&gt;&lt;/ol&gt;</translation>
    </message>
    <message>
        <source>Bosket Help</source>
        <translation>Pomoč za Bosket</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Navigation&lt;/h3&gt;&lt;p&gt;In tree edit mode drag with the right mouse button to turn and tilt the tree, with the left button to move it nearer or farther.&lt;/p&gt;&lt;table cellspacing=&apos;4&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Up&lt;/b&gt;, &lt;b&gt;Down&lt;/b&gt;&lt;/td&gt;&lt;td&gt;move forward, backward&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Left&lt;/b&gt;, &lt;b&gt;Right&lt;/b&gt;&lt;/td&gt;&lt;td&gt;turn left, right&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Home&lt;/b&gt;, &lt;b&gt;End&lt;/b&gt;&lt;/td&gt;&lt;td&gt;look up, down&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ins&lt;/b&gt;, &lt;b&gt;PgUp&lt;/b&gt;&lt;/td&gt;&lt;td&gt;roll in, out&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;,&lt;/b&gt; and &lt;b&gt;.&lt;/b&gt;&lt;/td&gt;&lt;td&gt;move up, down&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Del&lt;/b&gt;, &lt;b&gt;PgDown&lt;/b&gt;&lt;/td&gt;&lt;td&gt;move left, right&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl&lt;/b&gt; + key&lt;/td&gt;&lt;td&gt;move faster&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Alt&lt;/b&gt; + key&lt;/td&gt;&lt;td&gt;move slower&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl+0&lt;/b&gt;&lt;/td&gt;&lt;td&gt;next predefined camera&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Esc&lt;/b&gt;&lt;/td&gt;&lt;td&gt;reset the camera&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl+8&lt;/b&gt;, &lt;b&gt;Ctrl+9&lt;/b&gt;&lt;/td&gt;&lt;td&gt;keep the camera above the ground, or on it&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Space&lt;/b&gt;&lt;/td&gt;&lt;td&gt;switch between ecosystem and tree edit mode&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;F5&lt;/b&gt;&lt;/td&gt;&lt;td&gt;run or stop the simulation&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl+Shift+F&lt;/b&gt;&lt;/td&gt;&lt;td&gt;fast distant trees: far plants as pictures of their trees&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;p&gt;Key presses in the ecosystem add up: the camera glides and slowly comes to a stop.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Navigacija&lt;/h3&gt;&lt;p&gt;V načinu urejanja drevesa z desnim gumbom miške drevo vrtite in nagibate, z levim ga približate ali oddaljite.&lt;/p&gt;&lt;table cellspacing=&apos;4&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Gor&lt;/b&gt;, &lt;b&gt;Dol&lt;/b&gt;&lt;/td&gt;&lt;td&gt;naprej, nazaj&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Levo&lt;/b&gt;, &lt;b&gt;Desno&lt;/b&gt;&lt;/td&gt;&lt;td&gt;obrat levo, desno&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Home&lt;/b&gt;, &lt;b&gt;End&lt;/b&gt;&lt;/td&gt;&lt;td&gt;pogled gor, dol&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ins&lt;/b&gt;, &lt;b&gt;PgUp&lt;/b&gt;&lt;/td&gt;&lt;td&gt;nagib noter, ven&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;,&lt;/b&gt; in &lt;b&gt;.&lt;/b&gt;&lt;/td&gt;&lt;td&gt;premik gor, dol&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Del&lt;/b&gt;, &lt;b&gt;PgDown&lt;/b&gt;&lt;/td&gt;&lt;td&gt;premik levo, desno&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl&lt;/b&gt; + tipka&lt;/td&gt;&lt;td&gt;hitreje&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Alt&lt;/b&gt; + tipka&lt;/td&gt;&lt;td&gt;počasneje&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl+0&lt;/b&gt;&lt;/td&gt;&lt;td&gt;naslednja vnaprej določena kamera&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Esc&lt;/b&gt;&lt;/td&gt;&lt;td&gt;ponastavi kamero&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl+8&lt;/b&gt;, &lt;b&gt;Ctrl+9&lt;/b&gt;&lt;/td&gt;&lt;td&gt;kamera nad tlemi ali na tleh&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;preslednica&lt;/b&gt;&lt;/td&gt;&lt;td&gt;preklop med ekosistemom in urejanjem drevesa&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;F5&lt;/b&gt;&lt;/td&gt;&lt;td&gt;zaženi ali ustavi simulacijo&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Ctrl+Shift+F&lt;/b&gt;&lt;/td&gt;&lt;td&gt;hitra oddaljena drevesa: daljne rastline kot slike njihovih dreves&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;p&gt;Pritiski tipk v ekosistemu se seštevajo: kamera drsi in se počasi ustavi.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>gui::MainWindow</name>
    <message>
        <source>Error</source>
        <translation>Napaka</translation>
    </message>
    <message>
        <source>First run simulation please.</source>
        <translation>Najprej zaženite simulacijo.</translation>
    </message>
</context>
<context>
    <name>gui::OglWidget</name>
    <message>
        <source>OpenGL Extensions</source>
        <translation>Razširitve OpenGL</translation>
    </message>
    <message>
        <source>Could not query for supported OpenGL extensions, extensions will not be supported.</source>
        <translation>Podprtih razširitev OpenGL ni bilo mogoče poizvedeti, razširitve ne bodo podprte.</translation>
    </message>
    <message>
        <source>Compiled vertex array is not supported with this driver, using failover.</source>
        <translation>Ta gonilnik ne podpira prevedenih tabel oglišč, uporabljam nadomestno pot.</translation>
    </message>
</context>
<context>
    <name>gui::PixmapExportDialog</name>
    <message>
        <source>Export pixmap</source>
        <translation>Izvoz slike</translation>
    </message>
    <message>
        <source>PNG compression: 0 gives the smallest file and takes longest, 99 the largest file and is fastest.</source>
        <translation>Stiskanje PNG: 0 da najmanjšo datoteko in traja najdlje, 99 največjo datoteko in je najhitrejše.</translation>
    </message>
    <message>
        <source>Pixmap width:</source>
        <translation>Širina slike:</translation>
    </message>
    <message>
        <source>Pixmap height:</source>
        <translation>Višina slike:</translation>
    </message>
    <message>
        <source>Quality:</source>
        <translation>Kakovost:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>V redu</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Prekliči</translation>
    </message>
</context>
<context>
    <name>gui::PlantArea</name>
    <message>
        <source>Plant area setup</source>
        <translation>Nastavitev območja rastlin</translation>
    </message>
    <message>
        <source>Minimum x:</source>
        <translation>Najmanjši x:</translation>
    </message>
    <message>
        <source>Maximum x:</source>
        <translation>Največji x:</translation>
    </message>
    <message>
        <source>Minimum y:</source>
        <translation>Najmanjši y:</translation>
    </message>
    <message>
        <source>Maximum y:</source>
        <translation>Največji y:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>V redu</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Prekliči</translation>
    </message>
</context>
<context>
    <name>gui::RandomGeneratorSeedsEditor</name>
    <message>
        <source>Random generator seeds editor</source>
        <translation>Urejevalnik semen generatorja naključnih števil</translation>
    </message>
    <message>
        <source>Random: grow close</source>
        <translation>Naključno: rast v bližini</translation>
    </message>
    <message>
        <source>Random: choose near plant
</source>
        <translation>Naključno: izbira bližnje rastline
</translation>
    </message>
    <message>
        <source>Random: choose new plant grow side</source>
        <translation>Naključno: izbira strani rasti nove rastline</translation>
    </message>
    <message>
        <source>Random: position of new plants anywhere</source>
        <translation>Naključno: položaj novih rastlin kjerkoli</translation>
    </message>
    <message>
        <source>Random: 3D positions of new plants I</source>
        <translation>Naključno: 3D položaji novih rastlin I</translation>
    </message>
    <message>
        <source>Random: 3D positions of new plants J</source>
        <translation>Naključno: 3D položaji novih rastlin J</translation>
    </message>
    <message>
        <source>Random: death because of being dominated</source>
        <translation>Naključno: smrt zaradi prevlade drugih</translation>
    </message>
    <message>
        <source>Random: death because of bad height</source>
        <translation>Naključno: smrt zaradi neprimerne višine</translation>
    </message>
    <message>
        <source>Random: death because of bad moisture</source>
        <translation>Naključno: smrt zaradi neprimerne vlažnosti</translation>
    </message>
    <message>
        <source>Random: death because of bad sunniness</source>
        <translation>Naključno: smrt zaradi neprimerne osončenosti</translation>
    </message>
    <message>
        <source>Random: death because of bad windiness</source>
        <translation>Naključno: smrt zaradi neprimerne vetrovnosti</translation>
    </message>
    <message>
        <source>Random: death because of bad slope/pH</source>
        <translation>Naključno: smrt zaradi neprimernega naklona/pH</translation>
    </message>
    <message>
        <source>Random: time of death</source>
        <translation>Naključno: čas smrti</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>V redu</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Prekliči</translation>
    </message>
</context>
<context>
    <name>gui::SkyTextures</name>
    <message>
        <source>Sky textures</source>
        <translation>Teksture neba</translation>
    </message>
    <message>
        <source>North texture:</source>
        <translation>Severna tekstura:</translation>
    </message>
    <message>
        <source>South texture:</source>
        <translation>Južna tekstura:</translation>
    </message>
    <message>
        <source>East texture:</source>
        <translation>Vzhodna tekstura:</translation>
    </message>
    <message>
        <source>West texture:</source>
        <translation>Zahodna tekstura:</translation>
    </message>
    <message>
        <source>Upper texture:</source>
        <translation>Zgornja tekstura:</translation>
    </message>
    <message>
        <source>Lower texture:</source>
        <translation>Spodnja tekstura:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>V redu</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Prekliči</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Choose a file to open</source>
        <translation>Izberite datoteko</translation>
    </message>
    <message>
        <source>Images (*.png *.xpm *.jpg *.bmp)</source>
        <translation>Slike (*.png *.xpm *.jpg *.bmp)</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Napaka</translation>
    </message>
    <message>
        <source>Could not open sky texture file %1.</source>
        <translation>Datoteke s teksturo neba %1 ni bilo mogoče odpreti.</translation>
    </message>
</context>
<context>
    <name>gui::TextDialog</name>
    <message>
        <source>OK</source>
        <translation>V redu</translation>
    </message>
</context>
<context>
    <name>gui::actionhandling::DesignHandler</name>
    <message>
        <source> for strand distribution</source>
        <translation> za porazdelitev žil</translation>
    </message>
    <message>
        <source> for branching angles distribution</source>
        <translation> za porazdelitev kotov razvejitve</translation>
    </message>
    <message>
        <source> for minimal absolute branch lengths distribution</source>
        <translation> za porazdelitev najmanjših absolutnih dolžin vej</translation>
    </message>
    <message>
        <source> for maximal absolute branch lengths distribution</source>
        <translation> za porazdelitev največjih absolutnih dolžin vej</translation>
    </message>
    <message>
        <source> for branch lengths scaling distribution</source>
        <translation> za porazdelitev skaliranja dolžin vej</translation>
    </message>
    <message>
        <source> for gravimorphism impact distribution</source>
        <translation> za porazdelitev vpliva gravimorfizma</translation>
    </message>
</context>
<context>
    <name>gui::actionhandling::FileHandler</name>
    <message>
        <source>Error</source>
        <translation>Napaka</translation>
    </message>
    <message>
        <source>First run simulation please.</source>
        <translation>Najprej zaženite simulacijo.</translation>
    </message>
    <message>
        <source>Choose a simulation file to open</source>
        <translation>Izberite datoteko s simulacijo</translation>
    </message>
    <message>
        <source>Simulation files (*.sim)</source>
        <translation>Datoteke s simulacijo (*.sim)</translation>
    </message>
    <message>
        <source>Choose a filename to save under</source>
        <translation>Izberite ime datoteke za shranjevanje</translation>
    </message>
    <message>
        <source>Images (*.png *.xpm *.jpg *.bmp)</source>
        <translation>Slike (*.png *.xpm *.jpg *.bmp)</translation>
    </message>
    <message>
        <source>Could not write the image file %1.</source>
        <translation>Slike ni bilo mogoče zapisati v datoteko %1.</translation>
    </message>
    <message>
        <source>Choose a file to open</source>
        <translation>Izberite datoteko</translation>
    </message>
    <message>
        <source>Tree version 3.x parameters (*.tree.xml)</source>
        <translation>Parametri drevesa različice 3.x (*.tree.xml)</translation>
    </message>
    <message>
        <source>Could not open file.</source>
        <translation>Datoteke ni bilo mogoče odpreti.</translation>
    </message>
    <message>
        <source>Choose a file to import</source>
        <translation>Izberite datoteko za uvoz</translation>
    </message>
    <message>
        <source>Tree version 2.x parameters (*.tree)</source>
        <translation>Parametri drevesa različice 2.x (*.tree)</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Obvestilo</translation>
    </message>
    <message>
        <source>Not yet implemented.</source>
        <translation>Še ni izdelano.</translation>
    </message>
    <message>
        <source>Choose a filename to export under</source>
        <translation>Izberite ime datoteke za izvoz</translation>
    </message>
    <message>
        <source>Tree geometry vertices (*.crs)</source>
        <translation>Oglišča geometrije drevesa (*.crs)</translation>
    </message>
    <message>
        <source>Wavefront OBJ (*.obj)</source>
        <translation>Wavefront OBJ (*.obj)</translation>
    </message>
    <message>
        <source>Latex files (*.tex)</source>
        <translation>Datoteke LaTeX (*.tex)</translation>
    </message>
    <message>
        <source>Could not save file.</source>
        <translation>Datoteke ni bilo mogoče shraniti.</translation>
    </message>
    <message>
        <source>DEM model (*.dmr)</source>
        <translation>Model DMR (*.dmr)</translation>
    </message>
    <message>
        <source>Could not open bark texture file.</source>
        <translation>Datoteke s teksturo lubja ni bilo mogoče odpreti.</translation>
    </message>
    <message>
        <source>The file name is too long to be kept with the tree&apos;s parameters (at most 254 characters).</source>
        <translation>Ime datoteke je predolgo, da bi ga shranili s parametri drevesa (največ 254 znakov).</translation>
    </message>
    <message>
        <source>Rendering the image...</source>
        <translation>Izrisujem sliko ...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Prekliči</translation>
    </message>
    <message>
        <source>Export pixmap</source>
        <translation>Izvoz slike</translation>
    </message>
    <message>
        <source>Could not make an image of %1 x %2 pixels: not enough memory.</source>
        <translation>Slike velikosti %1 x %2 točk ni bilo mogoče narediti: premalo pomnilnika.</translation>
    </message>
    <message>
        <source>Saving the image...</source>
        <translation>Shranjujem sliko ...</translation>
    </message>
    <message>
        <source>Could not write %1.</source>
        <translation>Datoteke %1 ni bilo mogoče zapisati.</translation>
    </message>
</context>
</TS>
