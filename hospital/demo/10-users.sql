-- Written by generate-hospital; change hospital/generator instead.

INSERT INTO PASSWORD..tbPasswordMain (EmployeeID, LastName, FirstName, MiddleName, Initial, PasswordHash) VALUES
('NURSE','VILLANUEVA','MARISSA','SORIANO','MSV','$argon2id$v=19$m=65536,t=2,p=1$BoJgjXcHYTq0XDXKPpV/tQ$L07US8M65R8ZSJC0NiakRyx9nZoMvyoVZWVYKhxNzDI'),
('CLERK','MAGBANUA','JOEL','PEÑA','JPM','$argon2id$v=19$m=65536,t=2,p=1$SGsnNxkrXoMSNryYEMSmlA$cc3XvFXM2QUIwee25DYL/mLd12vgl0XYTc5K4/yBYHE'),
('ADMIN','SALAZAR','TERESITA','DIZON','TDS','$argon2id$v=19$m=65536,t=2,p=1$zRg9WbTmAULegnvOxV1maQ$IyCKVYCoZPEK0kgLN37fO+hrY/qT8pxhT4n0OojVdRU'),
('LAB','OCAMPO','RENATO','CRUZ','RCO','$argon2id$v=19$m=65536,t=2,p=1$fSt7/JTi3OoMjgGFSmATBg$WNhDOejc3QwBSiTbpnJeOUEi/zpAa2FOx9PE/rDqAl4');
GO

INSERT INTO PASSWORD..tbPasswordDept (EmployeeID, DeptCode) VALUES
('NURSE','HC'),
('CLERK','HC'),
('ADMIN','*'),
('LAB','LB');
GO

