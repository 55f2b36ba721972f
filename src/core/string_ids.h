#pragma once
// Named ids of bank 1, the English bank. Code asks for a text as LoadResString(sid::Name); the
// language offset is added there. The window data and the translations refer to these numbers,
// so an id is never reused or renumbered.
//
// Names: Menu<control> is a menu caption, TitleFrm<window> a window title, Tip... a tool tip,
// Label/Button/Option/Check/Frame/Column/Caption... another control's text. Texts that code joins
// into one line are told with their group.

namespace parlane::sid {

// Menu captions, named after their menu control. A caption shared by several menus is
// named after the main window's one: MenuNew, MenuEditPhone and MenuDelete also caption the
// centre commands and the delete entries of the folder browser; MenuFile and MenuExit serve
// both windows. mnuTools and mnuDebug2 show the titles of the windows they open, and the
// standard-texts window's own menu is MenuSettings.
inline constexpr int MenuFile = 1000;
inline constexpr int MenuQueue = 1001;
inline constexpr int MenuSend = 1002;
inline constexpr int MenuSendSingle = 1003;
inline constexpr int MenuInsert = 1004;
inline constexpr int MenuTelephoneDir = 1005;
inline constexpr int MenuNew = 1006;
inline constexpr int MenuEditPhone = 1007;
inline constexpr int MenuDelete = 1008;
inline constexpr int MenuExport = 1009;
inline constexpr int MenuData = 1010;
inline constexpr int MenuBackup = 1011;
inline constexpr int MenuRestore = 1012;
inline constexpr int MenuExit = 1013;
inline constexpr int MenuView = 1014;
inline constexpr int MenuLog = 1020;
inline constexpr int MenuViewQueue = 1021;
inline constexpr int MenuGroup = 1022;
inline constexpr int MenuSettings = 1023;
inline constexpr int MenuSmsc = 1024;
inline constexpr int MenuModems = 1028;
inline constexpr int MenuModemProperties = 1029;
inline constexpr int MenuDialLocation = 1030;
inline constexpr int MenuAddModem = 1031;
inline constexpr int MenuRetries = 1032;
inline constexpr int MenuTimeOut = 1033;
inline constexpr int MenuDefault = 1034;
inline constexpr int MenuHangUp = 1035;
inline constexpr int MenuHelp = 1036;
inline constexpr int MenuContents = 1037;
inline constexpr int MenuSupportInternet = 1040;
inline constexpr int MenuSupportEmail = 1041;
inline constexpr int MenuReadme = 1042;
inline constexpr int MenuAbout = 1043;
inline constexpr int MenuEdit = 1048;
inline constexpr int MenuRemove = 1049;
inline constexpr int MenuClear = 1050;
inline constexpr int MenuRemoveName = 1051;
inline constexpr int MenuFolder = 1107;
inline constexpr int MenuCreate = 1108;
inline constexpr int MenuOpen = 1109;
inline constexpr int MenuMoveTo = 1110;
inline constexpr int MenuCopyTo = 1111;
inline constexpr int MenuCreateFolder = 1112;
inline constexpr int MenuDeleteFolder = 1113;
inline constexpr int MenuSig = 1333;
inline constexpr int MenuOriginatorId = 1929;
inline constexpr int MenuLanguage = 1954;
inline constexpr int MenuEnglish = 1955;
inline constexpr int MenuItalian = 1956;
inline constexpr int MenuGerman = 1957;
inline constexpr int MenuFrench = 1958;
inline constexpr int MenuOrvane = 1959;
inline constexpr int MenuInternet = 1960;
inline constexpr int MenuEmail = 1961;

// Window and dialogue titles.
inline constexpr int TitleDisclaimer = 1039;
inline constexpr int ProductName = 1052;
inline constexpr int TitleInsertTextFile = 1062;
inline constexpr int TitleFrmBackup = 1088;
inline constexpr int TitleFrmDial = 1096;
inline constexpr int TitleFrmDirectoryAdd = 1098;
inline constexpr int TitleFrmFolderAdd = 1105;
inline constexpr int TitleFrmFolders = 1106;
inline constexpr int TitleFrmGroupAdd = 1114;
inline constexpr int TitleFrmImport = 1115;
inline constexpr int TitleOpenCsvFile = 1124;
inline constexpr int TitleFrmModem = 1125;
inline constexpr int TitleFrmModemInfo = 1128;
inline constexpr int TitleFrmMove = 1134;
inline constexpr int TitleFrmNoResponse = 1138;
inline constexpr int TitleFrmRestore = 1145;
inline constexpr int TitleFrmSmscEdit = 1146;
inline constexpr int TitleFrmTimeout = 1156;
inline constexpr int TitleCopy = 1190;
inline constexpr int TitleSaveDebugFile = 1325;
inline constexpr int TitleFrmToolWindow = 1332;
inline constexpr int TitleFrmDebug = 1365;
inline constexpr int TitleFrmOriginator = 1931;

// Tool tips. TipSentMessages also names the root of the folder tree, TipExit captions the
// viewer's Exit button and the debug view's tip, TipAddNewEntry and TipEditCurrentEntry end
// the directory dialogue's title, and TipNote1..6 stand for notes the user has not named.
inline constexpr int TipNames = 1044;
inline constexpr int TipCountryCode = 1045;
inline constexpr int TipAreaCode = 1046;
inline constexpr int TipTelephoneNumber = 1047;
inline constexpr int TipServiceProvider = 1053;
inline constexpr int TipSmsMessageText = 1054;
inline constexpr int TipSendMessages = 1066;
inline constexpr int TipQueueMessage = 1067;
inline constexpr int TipAddToGroupList = 1068;
inline constexpr int TipUseThisGroupList = 1069;
inline constexpr int TipAddNewGroup = 1070;
inline constexpr int TipDeleteCurrentGroup = 1071;
inline constexpr int TipStop = 1072;
inline constexpr int TipSentMessages = 1073;
inline constexpr int TipHelp = 1074;
inline constexpr int TipWhatsThis = 1075;
inline constexpr int TipExit = 1076;
inline constexpr int TipAddNewEntry = 1077;
inline constexpr int TipEditCurrentEntry = 1078;
inline constexpr int TipDeleteCurrentEntry = 1079;
inline constexpr int TipInternationalDiallingCodes = 1151;
inline constexpr int TipNote1 = 1334;
inline constexpr int TipNote2 = 1335;
inline constexpr int TipNote3 = 1336;
inline constexpr int TipNote4 = 1337;
inline constexpr int TipNote5 = 1338;
inline constexpr int TipNote6 = 1339;
inline constexpr int DefaultSignature = 1341;
inline constexpr int TipTime = 1343;
inline constexpr int TipDate = 1344;
inline constexpr int TipListView = 1353;
inline constexpr int TipDetailsView = 1354;
inline constexpr int TipExitFolders = 1355;
inline constexpr int TipSaveToFile = 1359;
inline constexpr int TipSystemInfo = 1360;

// Main window: compose panel, frames, help, disclaimer, and buttons shared by dialogues.
inline constexpr int HelpUnavailable = 1038;
inline constexpr int LabelCharactersUsed = 1055;
inline constexpr int FrameMessageToSend = 1056;
inline constexpr int FrameMobileToSendTo = 1057;
inline constexpr int FrameTelephoneDirectory = 1058;
inline constexpr int FrameBroadcastGroups = 1059;
inline constexpr int FrameMessageQueue = 1060;
inline constexpr int GroupNamesText = 1061;
inline constexpr int TextFileFilter = 1063;
inline constexpr int FileTruncatedTo = 1064;
inline constexpr int DisclaimerNoWarranty = 1080;
inline constexpr int DisclaimerNoLiability = 1081;
inline constexpr int DisclaimerCallingDevices = 1082;
inline constexpr int DisclaimerCallCosts = 1083;
inline constexpr int DisclaimerHigherRates = 1084;
inline constexpr int ButtonSave = 1099;
inline constexpr int ButtonCancel = 1100;
inline constexpr int ButtonSendAgain = 1142;
inline constexpr int ButtonPrint = 1143;
inline constexpr int VersionWord = 1158;
inline constexpr int ButtonYes = 1254;
inline constexpr int ButtonNo = 1255;

// Queuing. MessageInQueue and MessagesInQueue follow a count. An unknown name is archived
// as Aborted, " - ", the name, a blank and IsNotInDirectory.
inline constexpr int InQueue = 1225;
inline constexpr int MessageInQueue = 1226;
inline constexpr int MessagesInQueue = 1227;
inline constexpr int QueueSortError = 1228;
inline constexpr int NeverSeenMarker = 1232;
inline constexpr int UnknownSmsc = 1234;
inline constexpr int SmscDetailsNotFound = 1235;
inline constexpr int SavingCurrentMessageQueue = 1236;
inline constexpr int SavingMessageQueue = 1237;
inline constexpr int RestoringSavedQueue = 1238;
inline constexpr int PleaseEnterText = 1246;
inline constexpr int PleaseSetUpSmsc = 1247;
inline constexpr int PleaseEnterCountryCode = 1248;
inline constexpr int PleaseEnterAreaCode = 1249;
inline constexpr int PleaseEnterNumber = 1250;
inline constexpr int NameNotInDirectory = 1251;
inline constexpr int Aborted = 1252;
inline constexpr int IsNotInDirectory = 1253;
inline constexpr int DeleteAllQueuedQuestion = 1285;

// Send engine: status lines and archive results. MessageNumberPrefix, SendingMessageNumber
// and FailedResendingMessage are followed by the message's number; NoResponseFor, the
// seconds and SecondsWord make the no-response prompt.
inline constexpr int NoResponseFor = 1139;
inline constexpr int SecondsWord = 1140;
inline constexpr int WaitQuestion = 1141;
inline constexpr int WaitingToSend = 1196;
inline constexpr int NoMoreMessages = 1197;
inline constexpr int WaitingForAcknowledgement = 1198;
inline constexpr int Sending = 1199;
inline constexpr int Dialling = 1200;
inline constexpr int FailedDiallingAgain = 1201;
inline constexpr int LineInUse = 1202;
inline constexpr int ErrorMakingCall = 1203;
inline constexpr int Connected = 1204;
inline constexpr int Disconnecting = 1205;
inline constexpr int Disconnected = 1206;
inline constexpr int TimedOut = 1207;
inline constexpr int LoggingOn = 1208;
inline constexpr int FailedLoggingOnAgain = 1209;
inline constexpr int SendingMessage = 1210;
inline constexpr int SendingMessageNumber = 1211;
inline constexpr int FailedResendingMessage = 1212;
inline constexpr int MessageNumberPrefix = 1213;
inline constexpr int SendingMobileNumber = 1214;
inline constexpr int SendingMessageText = 1215;
inline constexpr int MessageSentSuccessfully = 1216;
inline constexpr int MessageRejectedBySmsc = 1217;
inline constexpr int MessageSendingTimedOut = 1218;
inline constexpr int AbortedUserPressedStop = 1219;
inline constexpr int AbortedMaxDialAttempts = 1220;
inline constexpr int AbortedUnableToOpenLine = 1221;
inline constexpr int UnableToOpenLineRetrying = 1222;
inline constexpr int AbortSaveBackQuestion = 1223;
inline constexpr int UnknownCommPortError = 1239;
inline constexpr int ErrorReceiving = 1240;
inline constexpr int UnknownErrorInReceiving = 1242;
inline constexpr int UnrecognisedPassword = 1244;
inline constexpr int InvalidPassword = 1245;

// Telephone directory. AreYouCertainDelete is followed by a blank and the name, and also
// asks before a centre is deleted.
inline constexpr int CheckAlwaysUseThisCentre = 1101;
inline constexpr int SavingEllipsis = 1102;
inline constexpr int PleaseEnterName = 1103;
inline constexpr int SelectName = 1104;
inline constexpr int FindingName = 1256;
inline constexpr int AddingName = 1257;
inline constexpr int SavingDirectory = 1258;
inline constexpr int DirectoryNameExists = 1259;
inline constexpr int CannotDeleteOnlyEntry = 1260;
inline constexpr int SelectNameToDelete = 1261;
inline constexpr int AreYouCertainDelete = 1262;
inline constexpr int UnableToCompleteDeletion = 1263;

// Broadcast groups. A failed load or save reads: number, LoadingWord or SavingWord, the
// group, GroupMemberNames or GroupListWord, the error text. The delete question is
// AreYouCertainRemove, the group and GroupQuestionEnd.
inline constexpr int GroupsAvailable = 1086;
inline constexpr int LoadingWord = 1264;
inline constexpr int GroupMemberNames = 1265;
inline constexpr int SavingWord = 1266;
inline constexpr int GroupListWord = 1267;
inline constexpr int AddingGroupName = 1268;
inline constexpr int DeletingGroupName = 1269;
inline constexpr int PleaseEnterGroupName = 1270;
inline constexpr int GroupNameExists = 1271;
inline constexpr int PleaseSelectNameToAdd = 1272;
inline constexpr int PleaseSelectGroupToAddTo = 1273;
inline constexpr int NameAlreadyInGroup = 1274;
inline constexpr int PleaseSelectGroupToSend = 1275;
inline constexpr int PleaseEnterGroupText = 1276;
inline constexpr int NoNamesInGroup = 1277;
inline constexpr int QueueingGroupMessages = 1278;
inline constexpr int PleaseSelectGroupToDelete = 1279;
inline constexpr int MustLeaveOneGroup = 1280;
// Our own: a group name that cannot be a file name of its own.
inline constexpr int GroupNameNotAllowed = 1297;
inline constexpr int AreYouCertainRemove = 1281;
inline constexpr int GroupQuestionEnd = 1282;
inline constexpr int ErrorQueueingGroupByRemote = 1283;
inline constexpr int ErrorNumber = 1284;

// Service-centre editor. The four FirstEdit paragraphs form the first-edit notice.
inline constexpr int LabelServiceCentreName = 1147;
inline constexpr int LabelLogonPassword = 1148;
inline constexpr int CountryCodesText = 1149;
inline constexpr int LabelServiceCentreNumber = 1152;
inline constexpr int LabelMaximumMessageLength = 1153;
inline constexpr int CheckMultipleMessages = 1154;
inline constexpr int LabelMaximumNoOfMessages = 1155;
inline constexpr int SelectModemToUse = 1163;
inline constexpr int PleaseEnterProviderName = 1164;
inline constexpr int ServiceCentreNameExists = 1165;
inline constexpr int PleaseEnterProviderNumber = 1166;
inline constexpr int PleaseEnterMaxMessages = 1167;
inline constexpr int MustLeaveOneProvider = 1168;
inline constexpr int FirstEditHeading = 1169;
inline constexpr int FirstEditDoNotAlter = 1170;
inline constexpr int FirstEditSettingsTested = 1171;
inline constexpr int FirstEditCheckWithNetwork = 1172;
inline constexpr int CheckDefaultSmsc = 1173;
inline constexpr int CheckDefaultModemForAll = 1174;
inline constexpr int ProtocolTap = 1948;
inline constexpr int ProtocolUcp = 1949;
inline constexpr int ProtocolVoda = 1950;
inline constexpr int ProtocolOrange = 1951;
inline constexpr int ProtocolTim = 1952;
inline constexpr int ProtocolLibertel = 1953;
inline constexpr int LabelOperationType = 1962;
inline constexpr int CheckAllowAscii = 1963;
// Our own: text the code page cannot hold (followed by the field's label), and the centres
// held still while a run sends by their places in the table.
inline constexpr int CharactersCannotBeStored = 1315;
inline constexpr int CentresBusyDuringRun = 1316;
// The offer made while no centre can be dialled, its three buttons, and the critical boxes of a
// failed start and of an unexpected fault (each followed by the fault's own words).
inline constexpr int FirstCentreInfo = 1349;
inline constexpr int ButtonNewCentre = 1350;
inline constexpr int ButtonDemoCentres = 1351;
inline constexpr int ButtonLater = 1352;
inline constexpr int StartFailed = 1065;
inline constexpr int UnexpectedFault = 1085;

// Modem, dial-attempt, time-out and originator dialogues. The four ModemInfo paragraphs
// form the notice shown before the modem panel. NotAvailable is the device row that cannot
// be read.
inline constexpr int LabelMaximumDiallingAttempts = 1095;
inline constexpr int MustEnterAtLeastOne = 1097;
inline constexpr int PleaseSelectModem = 1126;
inline constexpr int LabelModem = 1127;
inline constexpr int CheckDoNotDisplayAgain = 1129;
inline constexpr int ModemInfoConfigureDefaults = 1130;
inline constexpr int ModemInfoSameAsControlPanel = 1131;
inline constexpr int ModemInfoModemPerCentre = 1132;
inline constexpr int ModemInfoNotThePlace = 1133;
inline constexpr int LabelSecondsToWait = 1157;
inline constexpr int MustEnterAtLeast30 = 1159;
inline constexpr int NotAvailable = 1160;
inline constexpr int NoModemsInstalled = 1175;
inline constexpr int PleaseInstallModem = 1176;
inline constexpr int OriginatorExplained = 1930;
inline constexpr int OriginatorAreaCodeNote = 1932;
inline constexpr int OriginatorMaxDigits = 1943;
// Our own: the dial-attempt and time-out values must fit a 16-bit number.
inline constexpr int NumberTooLarge = 1313;

// Standard texts. The note prompts are followed by a blank and the note's number.
inline constexpr int EnterNoteText = 1340;
inline constexpr int EnterSignature = 1342;
inline constexpr int EnterNoteName = 1345;

// Sent-message archive: message file, folder browser, viewer.
inline constexpr int MoveToFolderLabel = 1135;
inline constexpr int CopyToFolderLabel = 1136;
inline constexpr int PageWord = 1144;
inline constexpr int SavingToOutbox = 1186;
inline constexpr int DamagedFileKept = 1187;
// Our own: a table file that is not a regular file, or too large to be one, is moved aside:
// the file's name, ": ", the reason, ", ", SetAsideAs and the new name.
inline constexpr int NotAnOrdinaryFile = 1188;
inline constexpr int LargerThanTableLimit = 1189;
inline constexpr int SetAsideAs = 1191;
// Our own, in the debug log: followed by the home's path.
inline constexpr int HomeMadePrivate = 1192;
inline constexpr int Unknown = 1243;
inline constexpr int NoProgramOpens = 1314;
inline constexpr int LabelOnline = 1321;
// Our own: a folder's name that would not stay a folder under the archive root.
inline constexpr int FolderNameNotAllowed = 1323;
inline constexpr int MessageLabel = 1324;
inline constexpr int ColumnDateSent = 1326;
inline constexpr int ColumnTo = 1327;
inline constexpr int ColumnStatus = 1328;
inline constexpr int PleaseEnterFolderName = 1329;
inline constexpr int CannotDeleteOutbox = 1330;
inline constexpr int PleaseChooseFolder = 1331;

// Backup, restore, CSV import and export. FileWillBeSavedAs is followed by the path of
// the export file and ToImportInstead.
inline constexpr int DataBackupCompleted = 1089;
inline constexpr int DataRestorationCompleted = 1090;
inline constexpr int NotFoundContinue = 1091;
inline constexpr int ErrorWord = 1092;
inline constexpr int IsNotAccessible = 1093;
inline constexpr int DeviceNotReady = 1094;
inline constexpr int OptionExport = 1116;
inline constexpr int OptionImport = 1117;
inline constexpr int ButtonNext = 1118;
inline constexpr int ButtonOpen = 1119;
inline constexpr int ButtonImport = 1120;
inline constexpr int ExportWizardInfo = 1121;
inline constexpr int FileWillBeSavedAs = 1122;
inline constexpr int ToImportInstead = 1123;
inline constexpr int ImportWizardInfo = 1286;
inline constexpr int ImportFormatInfo = 1287;
inline constexpr int DuplicateNamesNotImported = 1288;
inline constexpr int PressOpenButton = 1289;
inline constexpr int PressImportButton = 1290;
inline constexpr int LoadingTelephoneDirectory = 1291;
inline constexpr int PleaseChooseOption = 1292;
inline constexpr int NoEntriesToExport = 1293;
inline constexpr int CsvFileFilter = 1294;
inline constexpr int ImportingEllipsis = 1295;
inline constexpr int ErrorImportingNames = 1296;
// Our own: the closing report of a backup or restore lists the files it left alone, each with
// its name, ": " and one of these reasons or the system's text for a failed copy.
inline constexpr int FilesNotCopied = 1298;
inline constexpr int NotCopiedTableName = 1299;
inline constexpr int NotCopiedDamaged = 1300;

// Our own: the modem-settings, dialling-location and serial-ports dialogs. A check names the
// field: PleaseEnterValid, a blank and the field's label.
inline constexpr int PleaseEnterValid = 1301;
inline constexpr int LabelSpeed = 1302;
inline constexpr int LabelDataBits = 1303;
inline constexpr int LabelParity = 1304;
inline constexpr int LabelStopBits = 1305;
inline constexpr int LabelFlowControl = 1306;
inline constexpr int LabelInitString = 1307;
inline constexpr int LabelOutsideLine = 1308;
inline constexpr int LabelNationalPrefix = 1309;
inline constexpr int LabelInternationalPrefix = 1310;
inline constexpr int LabelDialMode = 1311;
inline constexpr int LabelSerialPorts = 1312;
// The modem dialog's lists: parity and flow-control choices, the ready framings, and the note of
// a centre that has no settings of its own (followed by the modem's settings).
inline constexpr int ChoiceNone = 1317;
inline constexpr int ChoiceEven = 1318;
inline constexpr int ChoiceOdd = 1319;
inline constexpr int ChoiceHardware = 1320;
inline constexpr int ModemDefaultsNote = 1087;
inline constexpr int LabelFraming = 1346;
inline constexpr int Framing8N1 = 1347;
inline constexpr int Framing7E1 = 1348;
// The internet line's settings dialog: title, labels and the on/off choices of its two lists.
inline constexpr int TitleTcpSettings = 1400;
inline constexpr int LabelTcpHost = 1401;
inline constexpr int LabelTcpPort = 1402;
inline constexpr int LabelConnectTimeout = 1403;
inline constexpr int LabelUseTls = 1404;
inline constexpr int LabelCheckCertificate = 1405;
inline constexpr int ChoiceOn = 1406;
inline constexpr int ChoiceOff = 1407;
// The internet line's notes in the debug log. A failure reads NotConnected or ConnectionLost,
// then one of the problem texts, the name or address it concerns, and the system's reason.
inline constexpr int TcpNoHostAndPort = 1408;
inline constexpr int TcpConnectingTo = 1409;
inline constexpr int TcpWithTls = 1410;
inline constexpr int TcpConnected = 1411;
inline constexpr int TcpNotConnected = 1412;
inline constexpr int TcpConnectionLost = 1413;
inline constexpr int TcpAddressNotFound = 1414;
inline constexpr int TcpNoConnectionTo = 1415;
inline constexpr int TcpTlsNotSetUp = 1416;
inline constexpr int TcpCertificatesUnreadable = 1417;
inline constexpr int TcpNoTlsAnswer = 1418;
inline constexpr int TcpTlsFailed = 1419;
inline constexpr int TcpCentreClosed = 1420;

// Debug view. OverwriteExisting and DataSavedAs are followed by the file's name.
inline constexpr int CaptionTapiMessages = 1356;
inline constexpr int CaptionDataTransmitted = 1357;
inline constexpr int CaptionDataReceived = 1358;
inline constexpr int DebugFileFilter = 1361;
inline constexpr int OverwriteExisting = 1362;
inline constexpr int DataSavedAs = 1363;
inline constexpr int SystemInfoUnavailable = 1364;

// Whole sentences of the telephony log. The API names and parameter dumps around them stay
// literal, as support reads them the same in every language.
inline constexpr int LogFailedToOpenCommPort = 1177;
inline constexpr int LogCommPortOpen = 1178;
inline constexpr int LogCommPortClosed = 1179;
inline constexpr int LogFailedToCloseCommPort = 1180;
inline constexpr int LogUnknownTapiError = 1181;
inline constexpr int LogUnknownMessage = 1183;
inline constexpr int LogUnknownCallState = 1184;

// Our own: the actions of failed writes on the status line, of smsc.dat and of an export.
inline constexpr int SavingCentres = 1430;
inline constexpr int ExportingDirectory = 1431;

// Our own sentences of the telephony log: a disconnect mode of no single name, and the end of
// the call at exit ("Line Dropped In 1.9 s - Exit", "Line Not Idle After 6.0 s, Closing It -
// Exit").
inline constexpr int LogUnknownDisconnectMode = 1460;
inline constexpr int LogLineDroppedIn = 1461;
inline constexpr int LogLineNotIdleAfter = 1462;
inline constexpr int LogClosingIt = 1463;
// No one else can drive the program: the session bus is missing or another copy holds the name.
inline constexpr int LogAutomationNotOffered = 1464;

// Our own: the line a message goes through, and a centre that has none here (1470-1479).
inline constexpr int LineLabel = 1470;
inline constexpr int LineNotOnThisComputer = 1471;
inline constexpr int LineNoneChosen = 1472;
inline constexpr int CentreHasNoNumber = 1473;
inline constexpr int CentreHasNoLine = 1474;
inline constexpr int CentreLineGone = 1475;
inline constexpr int NothingSentSeeCentres = 1476;
inline constexpr int SimulatedMark = 1477;
inline constexpr int LogCentreMovedToItsPort = 1478;
inline constexpr int LogModemNotConfirmed = 1479;
// Our own: a run stopped because an outcome could not be recorded (block 1480-1489).
inline constexpr int SendingStopped = 1480;
inline constexpr int ButtonRetry = 1481;
inline constexpr int FileCharactersNotKept = 1482;
inline constexpr int EachBecomesQuestionMark = 1483;
inline constexpr int MoveToTrash = 1484;
inline constexpr int CountSent = 1485;
inline constexpr int CountNotSent = 1486;

}  // namespace parlane::sid
