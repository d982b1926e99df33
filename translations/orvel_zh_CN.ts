<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CHost</name>
    <message>
        <source>The folder for the type library cannot be created: %1</source>
        <translation>无法创建类型库文件夹：%1</translation>
    </message>
    <message>
        <source>Open type library</source>
        <translation>打开类型库</translation>
    </message>
    <message>
        <source>The settings could not be saved: %1
Quit anyway?</source>
        <translation>无法保存设置：%1
仍要退出吗？</translation>
    </message>
    <message>
        <source>The type library %1 was not loaded: %2</source>
        <translation>无法加载类型库 %1：%2</translation>
    </message>
</context>
<context>
    <name>CHostHandler</name>
    <message>
        <source>The project was not saved: %1</source>
        <translation>无法保存工程：%1</translation>
    </message>
    <message>
        <source>The type file %1 was not written: %2</source>
        <translation>无法写入箱体类型文件 %1：%2</translation>
    </message>
</context>
<context>
    <name>CMailer</name>
    <message>
        <source>Message from Orvel</source>
        <translation>来自 Orvel 的邮件</translation>
    </message>
    <message>
        <source>Another mail is being sent.</source>
        <translation>正在发送另一封邮件。</translation>
    </message>
    <message>
        <source>The mail server did not answer in time.</source>
        <translation>邮件服务器未在规定时间内响应。</translation>
    </message>
    <message>
        <source>The mail was given up, since the program ends.</source>
        <translation>程序即将退出，已放弃发送邮件。</translation>
    </message>
</context>
<context>
    <name>CMainWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;New project</source>
        <translation>新建工程(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open project...</source>
        <translation>打开工程(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Save project</source>
        <translation>保存工程(&amp;S)</translation>
    </message>
    <message>
        <source>Save project &amp;as...</source>
        <translation>工程另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Open type &amp;library...</source>
        <translation>打开类型库(&amp;L)...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Preferences</source>
        <translation>偏好设置(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Type library</source>
        <translation>类型库(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Health settings</source>
        <translation>健康监控(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Orvel</source>
        <translation>关于 Orvel(&amp;A)</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>关于 Qt(&amp;Q)</translation>
    </message>
    <message>
        <source>Orvel %1

Configures LED display systems: processors, receiving cards and the layout of cabinets on the screen.</source>
        <translation>Orvel %1

用于配置 LED 显示系统：视频处理器、接收卡以及屏体的箱体布局。</translation>
    </message>
    <message>
        <source>About Orvel</source>
        <translation>关于 Orvel</translation>
    </message>
    <message>
        <source>Placed types</source>
        <translation>已布局的箱体类型</translation>
    </message>
    <message>
        <source>P&amp;laced types</source>
        <translation>已布局的箱体类型(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Layout</source>
        <translation>布局(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Place in layout</source>
        <translation>放入布局(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Remove from layout</source>
        <translation>移出布局(&amp;R)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Hides the list of placed types.</source>
        <translation>隐藏已布局箱体类型列表。</translation>
    </message>
</context>
<context>
    <name>CPlacedTypesPanel</name>
    <message>
        <source>Placed types</source>
        <translation>已布局的箱体类型</translation>
    </message>
    <message>
        <source>The layout has no types yet. Select a type in the type library and place it.</source>
        <translation>布局中还没有箱体类型。请在类型库中选择一个类型，然后放入布局。</translation>
    </message>
    <message>
        <source>Place in layout</source>
        <translation>放入布局</translation>
    </message>
    <message>
        <source>Remove from layout</source>
        <translation>移出布局</translation>
    </message>
</context>
<context>
    <name>CStatusBar</name>
    <message>
        <source>Scanning the type library...</source>
        <translation>正在扫描类型库...</translation>
    </message>
    <message>
        <source>Types: %1</source>
        <translation>箱体类型：%1</translation>
    </message>
    <message>
        <source>Type library: %1</source>
        <translation>类型库：%1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Plug-in: %1</source>
        <translation>插件：%1</translation>
    </message>
    <message>
        <source>%1 (not found)</source>
        <translation>%1（未找到）</translation>
    </message>
</context>
<context>
    <name>CabinetSection</name>
    <message>
        <source>The record has %1 x %2 receivers; 1 to 10 are possible.</source>
        <translation>记录中有 %1 x %2 张接收卡，允许 1 至 10 张。</translation>
    </message>
    <message>
        <source>The record&apos;s wiring does not pass through every receiver once.</source>
        <translation>记录中的走线没有恰好经过每张接收卡一次。</translation>
    </message>
    <message>
        <source>The record&apos;s digest is not made of hexadecimal digits.</source>
        <translation>记录中的摘要不是十六进制数字。</translation>
    </message>
    <message>
        <source>The record&apos;s weight, power or voltage is negative or not a number.</source>
        <translation>记录中的重量、功率或电压为负数或不是数值。</translation>
    </message>
    <message>
        <source>The record&apos;s lower voltage limit is above the upper one.</source>
        <translation>记录中的电压下限高于上限。</translation>
    </message>
    <message>
        <source>The record&apos;s name is too long.</source>
        <translation>记录中的名称过长。</translation>
    </message>
    <message>
        <source>The record is %1 bytes long; %2 to %3 are possible.</source>
        <translation>记录长度为 %1 字节，允许 %2 至 %3 字节。</translation>
    </message>
    <message>
        <source>The record&apos;s name is not UTF-8.</source>
        <translation>记录中的名称不是 UTF-8 编码。</translation>
    </message>
    <message>
        <source>The record&apos;s orientation is neither yes nor no.</source>
        <translation>记录中的方向标志既不是“是”也不是“否”。</translation>
    </message>
</context>
<context>
    <name>CreateOptions</name>
    <message>
        <source>The value of --%1 cannot be used: %2</source>
        <translation>--%1 的值无法使用：%2</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>Width that one receiving card drives (1 to 65535).</source>
        <translation>单张接收卡的带载宽度（1 至 65535）。</translation>
    </message>
    <message>
        <source>Height that one receiving card drives (1 to 65535).</source>
        <translation>单张接收卡的带载高度（1 至 65535）。</translation>
    </message>
    <message>
        <source>number</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>Model number of the receiving card.</source>
        <translation>接收卡的型号编号。</translation>
    </message>
    <message>
        <source>Four 64-bit numbers of the host&apos;s own.</source>
        <translation>主程序自用的四个 64 位数。</translation>
    </message>
    <message>
        <source>count</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>Receivers side by side; gives the file a multi-receiver record.</source>
        <translation>横向接收卡数量；使文件带有多接收卡记录。</translation>
    </message>
    <message>
        <source>Receivers one above the other; the same.</source>
        <translation>纵向接收卡数量；同上。</translation>
    </message>
    <message>
        <source>Cell ids in signal order; by default in their own order.</source>
        <translation>按信号顺序排列的单元编号；默认按编号顺序。</translation>
    </message>
    <message>
        <source>The wiring was made with orientation.</source>
        <translation>走线时指定了方向。</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Parameter file whose name and digest the record gets.</source>
        <translation>参数文件，其名称和摘要写入记录。</translation>
    </message>
    <message>
        <source>kilograms</source>
        <translation>千克</translation>
    </message>
    <message>
        <source>Weight on the cabinet&apos;s label.</source>
        <translation>箱体标签上的重量。</translation>
    </message>
    <message>
        <source>watts</source>
        <translation>瓦</translation>
    </message>
    <message>
        <source>Power on the cabinet&apos;s label.</source>
        <translation>箱体标签上的功率。</translation>
    </message>
    <message>
        <source>min,max</source>
        <translation>下限,上限</translation>
    </message>
    <message>
        <source>Working voltage on the cabinet&apos;s label, in volts.</source>
        <translation>箱体标签上的工作电压，单位为伏。</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>字节数</translation>
    </message>
    <message>
        <source>Length of the payload; 0 by default.</source>
        <translation>数据区长度，默认为 0。</translation>
    </message>
    <message>
        <source>What the payload&apos;s bytes are made from; 0 by default.</source>
        <translation>生成数据区字节所用的种子，默认为 0。</translation>
    </message>
    <message>
        <source>The file %1 cannot be read.</source>
        <translation>无法读取文件 %1。</translation>
    </message>
    <message>
        <source>A payload has at most %1 bytes.</source>
        <translation>数据区最多 %1 字节。</translation>
    </message>
</context>
<context>
    <name>JsonText</name>
    <message>
        <source>The file would be longer than %1 bytes and could not be read again.</source>
        <translation>文件将超过 %1 字节，无法再次读取。</translation>
    </message>
</context>
<context>
    <name>MailService</name>
    <message>
        <source>Sending the mail...</source>
        <translation>正在发送邮件...</translation>
    </message>
</context>
<context>
    <name>PasswordKeeper</name>
    <message>
        <source>The password of the mail account could not be read from the desktop&apos;s keychain.</source>
        <translation>无法从桌面的密钥环中读取邮件账户的密码。</translation>
    </message>
</context>
<context>
    <name>Project</name>
    <message>
        <source>The list of placed types is missing.</source>
        <translation>缺少已布局的箱体类型列表。</translation>
    </message>
    <message>
        <source>Placed type number %1 has no digest.</source>
        <translation>第 %1 个已布局的箱体类型没有摘要。</translation>
    </message>
    <message>
        <source>The type %1 is placed twice.</source>
        <translation>箱体类型 %1 重复出现在布局中。</translation>
    </message>
    <message>
        <source>The file is damaged at byte %1: %2</source>
        <translation>文件在第 %1 字节处损坏：%2</translation>
    </message>
    <message>
        <source>This is not a project file.</source>
        <translation>这不是工程文件。</translation>
    </message>
    <message>
        <source>The file was made by a newer program: it has format version %1, and this program reads version %2.</source>
        <translation>文件由更新版本的程序生成：其格式版本为 %1，本程序可读取版本 %2。</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>There is no file name.</source>
        <translation>没有文件名。</translation>
    </message>
</context>
<context>
    <name>ProjectCommands</name>
    <message>
        <source>Open project</source>
        <translation>打开工程</translation>
    </message>
    <message>
        <source>Projects (*.prj)</source>
        <translation>工程文件 (*.prj)</translation>
    </message>
    <message>
        <source>The project %1 was not opened: %2</source>
        <translation>无法打开工程 %1：%2</translation>
    </message>
    <message>
        <source>Save project</source>
        <translation>保存工程</translation>
    </message>
    <message>
        <source>The project %1 was not saved: %2</source>
        <translation>无法保存工程 %1：%2</translation>
    </message>
    <message>
        <source>The project %1 has changes that are not saved. Save them?</source>
        <translation>工程 %1 有未保存的更改。是否保存？</translation>
    </message>
</context>
<context>
    <name>SafeFile</name>
    <message>
        <source>The file is longer than %1 bytes.</source>
        <translation>文件超过 %1 字节。</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>这不是普通文件。</translation>
    </message>
    <message>
        <source>The file could not be written whole; perhaps the disk is full.</source>
        <translation>文件未能完整写入，磁盘可能已满。</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>The settings file %1 cannot be used: %2</source>
        <translation>无法使用设置文件 %1：%2</translation>
    </message>
    <message>
        <source>It could not be moved aside: %1</source>
        <translation>无法将该文件移走：%1</translation>
    </message>
    <message>
        <source>It was kept as %1.</source>
        <translation>该文件已保留为 %1。</translation>
    </message>
    <message>
        <source>The settings saved before it are used instead.</source>
        <translation>已改用上一次保存的设置。</translation>
    </message>
    <message>
        <source>All settings start from their defaults.</source>
        <translation>所有设置均恢复为默认值。</translation>
    </message>
    <message>
        <source>The settings were saved by a newer version of Orvel. What this version does not know is kept.</source>
        <translation>设置由更新版本的 Orvel 保存。本版本无法识别的内容会予以保留。</translation>
    </message>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
    <message>
        <source>it is not valid JSON at byte %1 (%2).</source>
        <translation>第 %1 字节处不是有效的 JSON（%2）。</translation>
    </message>
    <message>
        <source>it is not a JSON object.</source>
        <translation>内容不是 JSON 对象。</translation>
    </message>
</context>
<context>
    <name>SmtpSender</name>
    <message>
        <source>The server refuses a recipient: %1</source>
        <translation>服务器拒绝了某个收件人：%1</translation>
    </message>
    <message>
        <source>The name of the mail server is not valid.</source>
        <translation>邮件服务器名称无效。</translation>
    </message>
    <message>
        <source>The mail server&apos;s port is not valid.</source>
        <translation>邮件服务器端口无效。</translation>
    </message>
    <message>
        <source>The sender&apos;s address is not valid.</source>
        <translation>发件人地址无效。</translation>
    </message>
    <message>
        <source>The password holds characters that cannot be sent.</source>
        <translation>密码含有无法发送的字符。</translation>
    </message>
    <message>
        <source>The subject holds a line break or another control character.</source>
        <translation>主题含有换行符或其他控制字符。</translation>
    </message>
    <message>
        <source>There is no recipient.</source>
        <translation>没有收件人。</translation>
    </message>
    <message>
        <source>A recipient&apos;s name holds a line break or another control character.</source>
        <translation>某个收件人的名称含有换行符或其他控制字符。</translation>
    </message>
    <message>
        <source>A recipient&apos;s address is not valid.</source>
        <translation>某个收件人的地址无效。</translation>
    </message>
    <message>
        <source>The mail server %1 is not known.</source>
        <translation>找不到邮件服务器 %1。</translation>
    </message>
    <message>
        <source>The mail server %1 cannot be reached at port %2.</source>
        <translation>无法连接邮件服务器 %1 的端口 %2。</translation>
    </message>
    <message>
        <source>The mail server did not answer in time.</source>
        <translation>邮件服务器未在规定时间内响应。</translation>
    </message>
    <message>
        <source>The mail was given up.</source>
        <translation>已放弃发送邮件。</translation>
    </message>
    <message>
        <source>The mail server offers no encryption at port %1.</source>
        <translation>邮件服务器在端口 %1 上不支持加密。</translation>
    </message>
    <message>
        <source>No encrypted connection comes about at port %1: %2</source>
        <translation>无法在端口 %1 上建立加密连接：%2</translation>
    </message>
    <message>
        <source>The mail server&apos;s certificate is not trusted: %1</source>
        <translation>邮件服务器的证书不受信任：%1</translation>
    </message>
    <message>
        <source>The certificates to trust cannot be read: %1</source>
        <translation>无法读取要信任的证书：%1</translation>
    </message>
    <message>
        <source>The mail server refuses the address and password.</source>
        <translation>邮件服务器不接受该邮箱地址和密码。</translation>
    </message>
    <message>
        <source>The mail server offers no login, so nothing was sent.</source>
        <translation>邮件服务器不支持登录，因此未发送任何内容。</translation>
    </message>
    <message>
        <source>The connection to the mail server broke: %1</source>
        <translation>与邮件服务器的连接中断：%1</translation>
    </message>
    <message>
        <source>The mail server refuses the mail: %1</source>
        <translation>邮件服务器拒收该邮件：%1</translation>
    </message>
</context>
<context>
    <name>TypeFile</name>
    <message>
        <source>The payload is damaged: its checksum is wrong.</source>
        <translation>数据区已损坏：校验和错误。</translation>
    </message>
    <message>
        <source>The file has changed while it was being read.</source>
        <translation>读取期间文件发生了变化。</translation>
    </message>
</context>
<context>
    <name>TypeFileHeader</name>
    <message>
        <source>The cabinet has no pixels: %1 x %2.</source>
        <translation>箱体没有像素：%1 x %2。</translation>
    </message>
    <message>
        <source>The payload has %1 bytes; at most %2 are possible.</source>
        <translation>数据区有 %1 字节，最多允许 %2 字节。</translation>
    </message>
    <message>
        <source>The file was made by a newer program: it has format version %1, and this program reads version %2.</source>
        <translation>文件由更新版本的程序生成：其格式版本为 %1，本程序可读取版本 %2。</translation>
    </message>
    <message>
        <source>There is no format version %1.</source>
        <translation>不存在格式版本 %1。</translation>
    </message>
    <message>
        <source>The file is cut off: it has %1 of %2 bytes.</source>
        <translation>文件不完整：应有 %2 字节，实有 %1 字节。</translation>
    </message>
    <message>
        <source>The file has %1 bytes too many.</source>
        <translation>文件多出 %1 字节。</translation>
    </message>
    <message>
        <source>A section runs over the header&apos;s end.</source>
        <translation>某个数据段超出了文件头的末尾。</translation>
    </message>
    <message>
        <source>There are two multi-receiver records.</source>
        <translation>存在两条多接收卡记录。</translation>
    </message>
    <message>
        <source>The header would have %1 bytes; at most %2 are possible.</source>
        <translation>文件头将有 %1 字节，最多允许 %2 字节。</translation>
    </message>
    <message>
        <source>This is not a type file.</source>
        <translation>这不是箱体类型文件。</translation>
    </message>
    <message>
        <source>The header&apos;s size is %1; %2 to %3 bytes are possible.</source>
        <translation>文件头大小为 %1，允许 %2 至 %3 字节。</translation>
    </message>
    <message>
        <source>The header is damaged: its checksum is wrong.</source>
        <translation>文件头已损坏：校验和错误。</translation>
    </message>
</context>
<context>
    <name>TypeFileTool</name>
    <message>
        <source>The file exists already.</source>
        <translation>文件已存在。</translation>
    </message>
    <message>
        <source>sound</source>
        <translation>完好</translation>
    </message>
    <message>
        <source>Makes, shows and checks type files.

Commands:
  create FILE   makes a type file; only this command takes options
  show FILE     prints what the header says
  check FILE... reads the whole files and compares their checksums
  samples DIR   writes the sample library into the folder</source>
        <translation>生成、显示和检查箱体类型文件。

命令：
  create FILE   生成箱体类型文件；只有此命令接受选项
  show FILE     显示文件头的内容
  check FILE... 读取整个文件并核对校验和
  samples DIR   将示例类型库写入文件夹</translation>
    </message>
    <message>
        <source>Prints this text.</source>
        <translation>显示本帮助。</translation>
    </message>
    <message>
        <source>One of the above.</source>
        <translation>以上命令之一。</translation>
    </message>
    <message>
        <source>Files or folder.</source>
        <translation>文件或文件夹。</translation>
    </message>
    <message>
        <source>There is no command &quot;%1&quot;; --help lists them.</source>
        <translation>没有命令“%1”；用 --help 查看全部命令。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs a path.</source>
        <translation>“%1”需要一个路径。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; takes one path.</source>
        <translation>“%1”只接受一个路径。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; takes no options.</source>
        <translation>“%1”不接受选项。</translation>
    </message>
</context>
</TS>
