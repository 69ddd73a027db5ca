{ Compiles the help file: makehelp FOLDER FILE.chm. FOLDER has the pages (HTML, each named once in contents.txt, where
  indentation makes the tree), style.css and pictures. A page says of itself, in its head:
    <title>...</title>                            its name in the table of contents
    <meta name="context" content="3400">          numbers by which the add-in opens it
    <meta name="keywords" content="view, filter"> its entries in the index
  The compiler of FPC's own package, chmcmd, writes the folder of the build into the table of contexts, so that they lead
  nowhere on another machine; hence this program on the same unit. The same pages give the same bytes. }
program makehelp;

{$mode objfpc}{$H+}

uses
  cthreads, Classes, SysUtils, StrUtils, chmtypes, chmwriter;

const
  HelpTitle = 'Kestrune Link';
  FirstPage = 'index.html';

type
  THelp = class
    Folder: string;
    Chm: TChmWriter;
    Files, Contents, Index: TStringList;
    function GetFile(const Name: string; out PathInChm: string; out FileName: string; var Stream: TStream): Boolean;
    procedure AddLists(Sender: TObject);
    procedure AddPage(const Name: string; Level: Integer);
    procedure Compile(const Target: string);
  end;

procedure Fail(const Message: string);
begin
  WriteLn(StdErr, 'makehelp: ', Message);
  Halt(1);
end;

function ReadText(const Path: string): string;
begin
  with TStringStream.Create('') do
    try
      LoadFromFile(Path);
      Result := DataString;
    finally
      Free;
    end;
end;

{ What stands in Text between each First and the Last after it. }
function Between(const Text, First, Last: string): TStringList;
var
  At, Finish: Integer;
begin
  Result := TStringList.Create;
  At := Pos(First, Text);
  while At > 0 do
  begin
    Inc(At, Length(First));
    Finish := PosEx(Last, Text, At);
    if Finish = 0 then Break;
    Result.Add(Copy(Text, At, Finish - At));
    At := PosEx(First, Text, Finish);
  end;
end;

function Entry(const Name, Page: string): string;
begin
  Result := '<LI><OBJECT type="text/sitemap"><param name="Name" value="' + Name +
    '"><param name="Local" value="' + Page + '"></OBJECT>'#10;
end;

function SiteMap(const Entries: string): TStream;
begin
  Result := TStringStream.Create('<HTML><BODY>'#10 + Entries + '</BODY></HTML>'#10);
end;

function THelp.GetFile(const Name: string; out PathInChm: string; out FileName: string; var Stream: TStream): Boolean;
begin
  PathInChm := '/' + ExtractFilePath(Name);
  FileName := ExtractFileName(Name);
  Stream := TMemoryStream.Create;
  TMemoryStream(Stream).LoadFromFile(Folder + Name);
  Stream.Position := 0;
  Result := False;  { not cancelled }
end;

procedure THelp.AddLists(Sender: TObject);
var
  Tree, Line: string;
  Level, NewLevel, I: Integer;
begin
  Tree := '';
  Level := 0;
  for Line in Contents do
  begin
    NewLevel := StrToInt(Copy(Line, 1, 1));
    for I := Level to NewLevel - 1 do Tree := Tree + '<UL>'#10;
    for I := NewLevel to Level - 1 do Tree := Tree + '</UL>'#10;
    Level := NewLevel;
    Tree := Tree + Copy(Line, 2, Length(Line));
  end;
  Chm.AppendTOC(SiteMap(Tree + DupeString('</UL>'#10, Level)));
  Index.Sort;
  Chm.AppendIndex(SiteMap('<UL>'#10 + StringReplace(Index.Text, #10#10, #10, [rfReplaceAll]) + '</UL>'#10));
end;

procedure THelp.AddPage(const Name: string; Level: Integer);
var
  Page, Title, Item: string;
begin
  if not FileExists(Folder + Name) then Fail('contents.txt names ' + Name + ', which is not there');
  Page := ReadText(Folder + Name);
  Title := Trim(Between(Page, '<title>', '</title>').Text);
  if Title = '' then Fail(Name + ' has no title');
  Files.Add(Name);
  Contents.Add(IntToStr(Level) + Entry(Title, Name));
  for Item in Between(Page, '<meta name="context" content="', '"') do Chm.AddContext(StrToInt(Item), Name);
  for Item in Between(Page, '<meta name="keywords" content="', '"') do
    for Title in Item.Split([',']) do Index.Add(Entry(Trim(Title), Name));
  for Item in Between(Page, '<img src="', '"') do
    if Files.IndexOf(Item) < 0 then Files.Add(Item);
end;

{ The time of the build, in two places, would make each file another. }
procedure RemoveTimes(const Chm: TMemoryStream);
const
  HeaderAt = 16;
  SystemEntry = #3#0#0#0#10#0#4#0;  // the beginning of #SYSTEM, before its time
var
  Bytes: string;
  At: Integer;
begin
  SetString(Bytes, PChar(Chm.Memory), Chm.Size);
  At := Pos(SystemEntry, Bytes);
  if (At = 0) or (PosEx(SystemEntry, Bytes, At + 1) > 0) then Fail('the time in #SYSTEM is not found');
  FillChar(PChar(Chm.Memory)[HeaderAt], 4, 0);
  FillChar(PChar(Chm.Memory)[At - 1 + Length(SystemEntry)], 4, 0);
end;

procedure THelp.Compile(const Target: string);
var
  Line: string;
  Output: TMemoryStream;
begin
  Files := TStringList.Create;
  Contents := TStringList.Create;
  Index := TStringList.Create;
  Output := TMemoryStream.Create;
  Chm := TChmWriter.Create(Output, False);
  for Line in ReadText(Folder + 'contents.txt').Split([#10]) do
    if Trim(Line) <> '' then AddPage(Trim(Line), 1 + (Length(Line) - Length(TrimLeft(Line))) div 2);
  Files.Add('style.css');
  Chm.OnGetFileData := @GetFile;
  Chm.OnLastFile := @AddLists;
  Chm.Title := HelpTitle;
  Chm.DefaultPage := FirstPage;
  Chm.TocName := 'contents.hhc';
  Chm.IndexName := 'index.hhk';
  Chm.LocaleID := $0409;
  Chm.FullTextSearch := True;
  Chm.DefaultWindow := 'main';
  Chm.Windows.Add(TCHMWindow.Create(
    'main="' + HelpTitle + '","contents.hhc","index.hhk","' + FirstPage + '","' + FirstPage +
    '",,,,,0x63520,220,0x387e,[80,60,1000,760],,,,,,,0'));
  Chm.FilesToCompress.AddStrings(Files);
  Chm.Execute;
  RemoveTimes(Output);
  Output.SaveToFile(Target);
end;

begin
  if ParamCount <> 2 then Fail('makehelp FOLDER FILE.chm');
  with THelp.Create do
  begin
    Folder := IncludeTrailingPathDelimiter(ParamStr(1));
    Compile(ParamStr(2));
  end;
end.
